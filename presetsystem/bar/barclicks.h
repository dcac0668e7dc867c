// What each control of the preset bar does.
#pragma once

namespace VSTGUI {
class CControl;
}

class CPresetSystemEffect;
class PresetBar;
class PresetBarActions;

// Acts on the bar's tags (PresetBarTag) and ignores all others. User-interface thread.
class BarClicks {
 public:
  BarClicks(CPresetSystemEffect* clickedEffect, PresetBar& clickedBar, PresetBarActions& asked)
      : effect(clickedEffect), bar(clickedBar), actions(asked) {}

  void valueChanged(VSTGUI::CControl* control);

 private:
  void nameEdited();
  void stepPreset(float direction);
  void presetChosen();
  void manualPressed();

  CPresetSystemEffect* effect;
  PresetBar& bar;
  PresetBarActions& actions;
};
