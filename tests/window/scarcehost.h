// What the tests of a window without memory share: one instance, and a window for it.
#pragma once

#include <unistd.h>

#include <functional>
#include <string>

#include "places.h"
#include "plugin/createeffectinstance.h"
#include "testdisplay.h"
#include "tests/support/imagebytes.h"
#include "tests/support/silenthost.h"

// Of so many allocations one fails: with the sanitizers a window takes too long for every one.
#ifdef TRELVAN_SANITIZED
constexpr long kStep = 41;
#else
constexpr long kStep = 1;
#endif

class ScarceHost {
 public:
  VstIntPtr send(VstInt32 opcode, VstIntPtr value = 0, void* ptr = nullptr, VstInt32 index = 0) {
    return effect->dispatcher(effect, opcode, index, value, ptr, 0.0F);
  }
  bool open() { return send(effEditOpen, 0, reinterpret_cast<void*>(std::uintptr_t{window})) == 1; }
  // The server takes a moment to end what a closed connection had.
  bool becomesEmpty() {
    for (int tries = 0; tries < 1000 && !isEmpty(); ++tries) usleep(1000);
    return isEmpty();
  }
  bool close() {
    send(effEditClose);
    return becomesEmpty();
  }
  imagebytes::Bytes chunk() {
    void* data = nullptr;
    const VstIntPtr size = send(effGetChunk, 0, &data);
    const auto* bytes = static_cast<const unsigned char*>(data);
    return {bytes, bytes + size};
  }
  float parameter(VstInt32 index) { return effect->getParameter(effect, index); }
  void setParameter(VstInt32 index, float value) { effect->setParameter(effect, index, value); }
  void click(const Area& place = places::kPhaseSwitch) {
    display.moveTo(kPlace.left + place.centreX(), kPlace.top + place.centreY());
    display.press(1);
    display.release(1);
  }
  void tap(std::uint32_t keysym) { display.tap(keysym); }
  std::string programName() {
    char name[64] = {};
    send(effGetProgramName, 0, name);
    return name;
  }
  // Passes until it is so; false after some seconds.
  bool idleUntil(const std::function<bool()>& isSo) {
    for (int pass = 0; pass < 2000 && !isSo(); ++pass) {
      send(effEditIdle);
      usleep(2000);
    }
    return isSo();
  }
  // A click reaches the switch.
  bool isAlive() {
    const float before = parameter(4);
    for (int pass = 0; pass < 100 && parameter(4) == before; ++pass) {
      if (pass % 3 == 2) click();
      send(effEditIdle);
      usleep(2000);
    }
    return parameter(4) != before;
  }

 private:
  bool isEmpty() { return display.childrenOf(window) == 0; }

  static constexpr Area kPlace{20, 40, 340, 320};  // of the host's window on the screen

  TestDisplay display;
  xcb_window_t window = display.makeWindow(kPlace);
  AEffect* effect = createEffectRecord(silentHost);
};
