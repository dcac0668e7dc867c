// What the preset store tells the side that shows presets and keeps their defaults.
#pragma once

// The store knows nobody but this: not the window, not the toolkit, not the preferences.
class PresetListener {
 public:
  virtual void presetsChanged() = 0;  // a bank or preset was read; any thread
  // the host renamed the current preset; any thread
  virtual void nameChangedExternal(const char* name) = 0;
  virtual void loadDefaults() = 0;  // while the effect is made: stored bank, preset, places

 protected:
  ~PresetListener() = default;
};
