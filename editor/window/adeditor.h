// The effect's own window: sliders, switches, displays, meter and about, above the preset bar.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

#include "effect/parameters.h"
#include "presetsystem/bar/cpresetsystemeditor.h"
#include "vstgui.h"

class CAbout;
class CParameterSlider;
class CValueDisplay;
class CVuMeter1;
class Trelvan;

// Made once by its effect. The frame owns the controls; the pointers are valid while the window is
// open. Gestures go to the host as automation; changes of the effect's parameters, from any thread,
// are marked and reach the controls at the next idle pass.
class ADEditor : public CPresetSystemEditor {
 public:
  explicit ADEditor(Trelvan* owner);
  ~ADEditor() override;

  bool open(void* window) override;
  void close() override;
  void idle() override;
  void valueChanged(VSTGUI::CControl* control) override;
  // any thread; an index that is no parameter's is ignored
  void setParameter(VstInt32 index, float value) override;
  virtual void suspend();  // the meter shows the centre

 protected:
  ERect windowSize() override;
  bool isAtRest() const override;  // nor is a value typed
  void keyboardLeft() override;    // confirms a value that is being typed

 private:
  bool openWindow(void* window);
  void addCaptions();
  void addMeter();
  void addParameterControls();
  void addAbout();
  void showParameter(VstInt32 index);
  void showValue(VstInt32 index);
  void sendMotions();
  void takeTyped(VstInt32 index, const std::string& text);
  void endGestures();
  void forgetControls();

  Trelvan* trelvan;
  std::atomic<std::uint32_t> changed{0};  // one bit a parameter that the controls do not show yet
  VSTGUI::SharedPointer<VSTGUI::CBitmap> background;  // while the window is open
  struct ParameterViews {
    VSTGUI::CControl* control = nullptr;  // slider or switch
    CParameterSlider* slider = nullptr;   // the control, where it is one
    CValueDisplay* display = nullptr;     // of its value; none beside a switch
  };
  std::array<ParameterViews, kParameterCount> views;  // by parameter index
  CVuMeter1* meter = nullptr;
  CAbout* about = nullptr;
};
