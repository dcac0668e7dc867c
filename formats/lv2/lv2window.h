// The effect's window in an LV2 host's.
#pragma once

#include <lv2/ui/ui.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "formats/lv2/lv2effect.h"
#include "formats/lv2/newchildwindow.h"

// It shows the effect itself, not a copy of its values: what the user does is heard at once, and
// the host is told by its ports. Everything on the host's user-interface thread.
class Lv2Window final : private Lv2EffectWindow {
 public:
  struct Host {
    LV2UI_Write_Function write;
    LV2UI_Controller controller;
    const LV2UI_Touch* touch;    // null: not told of gestures
    const LV2UI_Resize* resize;  // null: not told of the size
    float scale;                 // of the window; 0: the desktop's
  };

  // Null where none could be opened, or the effect has one already.
  static std::unique_ptr<Lv2Window> open(Lv2Effect& effect, WindowId parent, const Host& host);
  ~Lv2Window();
  Lv2Window(const Lv2Window&) = delete;
  Lv2Window& operator=(const Lv2Window&) = delete;

  WindowId id() const { return window; }  // of the window in the host's
  void idle();
  void portSaid(std::uint32_t port, float value);  // the host, of a control port's value

 private:
  Lv2Window(Lv2Effect& shown, const Host& itsHost);
  bool openIn(WindowId parent);
  void tell(int index, float value);
  void tellAll();

  void parameterEdited(int index, float value) override { tell(index, value); }
  void editBegun(int index) override { touch(index, true); }
  void editEnded(int index) override { touch(index, false); }
  void effectEnds() override;
  void touch(int index, bool held) const;

  Lv2Effect* effect;  // null: it has ended
  Host host;
  WindowId window = 0;
  std::vector<float> told;  // what the host has in its ports, as far as we know
};
