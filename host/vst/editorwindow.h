// Shows an effect's own window in a plain window of the system.
#pragma once

#include <optional>
#include <string>

#include "host/vst/effect.h"

// Asks of an effect whose window is shown; the window takes the size that the effect asks for.
class EditorHostCallback final : public HostCallback {
 public:
  VstIntPtr answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) override;

  struct Size {
    int width;  // pixels
    int height;
  };
  // The last size asked for since this was last called.
  std::optional<Size> takeSize();

 private:
  std::optional<Size> asked;  // the window's thread asks and takes
};

// Returns when the user closes the window. The effect is set up; `title` is shown. Called on the thread that made the
// effect. Throws Failure: the effect has no window, it does not open, there is no display.
void showEditor(Effect& effect, EditorHostCallback& callback, const std::string& title);
