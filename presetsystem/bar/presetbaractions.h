// What the preset bar's clicks ask for.
#pragma once

// User-interface thread.
class PresetBarActions {
 public:
  virtual void loadBank(bool endianReversed) = 0;
  virtual void saveBank() = 0;
  virtual void saveDefaultBank() = 0;
  virtual void resetDefaultBank() = 0;
  virtual void loadPreset(bool endianReversed) = 0;
  virtual void savePreset() = 0;
  virtual void saveDefaultPreset() = 0;
  virtual void resetDefaultPreset() = 0;
  virtual void storeA() = 0;
  virtual void storeB() = 0;
  virtual void recallA() = 0;
  virtual void recallB() = 0;
  virtual void nameChangedInternal(const char* name) = 0;
  virtual void openManual() = 0;

 protected:
  ~PresetBarActions() = default;
};
