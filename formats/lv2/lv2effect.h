// One LV2 instance: the effect with its ports.
#pragma once

#include <lv2/core/lv2.h>
#include <lv2/state/state.h>
#include <lv2/urid/urid.h>

#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

#include "formats/lv2/shape.h"
#include "formats/record/hostedeffect.h"

// What the window hears of its effect, on the window's thread.
class Lv2EffectWindow {
 public:
  virtual void parameterEdited(int index, float value) = 0;
  virtual void editBegun(int index) = 0;
  virtual void editEnded(int index) = 0;
  virtual void effectEnds() = 0;  // before the window, which no host should do

 protected:
  ~Lv2EffectWindow() = default;
};

// The host owns the parameters' values and says them by control ports, which it may first fill when
// it calls run. What the user does in the window is heard at once and goes to the host, which moves
// its ports after it: so a port counts where it has moved, and not while the user holds the
// control. Every call but run, connect and what the window does comes from the host's own thread
// for the instance, and none of them beside run, except for save.
class Lv2Effect final : private HostedEffectListener {
 public:
  // map: null where the host has none; then there is no state. Null where the effect cannot be
  // made.
  static std::unique_ptr<Lv2Effect> make(const Lv2Shape& shape, double rate,
                                         const LV2_URID_Map* map);
  ~Lv2Effect();
  Lv2Effect(const Lv2Effect&) = delete;
  Lv2Effect& operator=(const Lv2Effect&) = delete;

  void connect(std::uint32_t port, void* place);  // audio thread too; null: not connected
  void activate();
  void run(std::uint32_t frames);  // audio thread
  void deactivate();

  LV2_State_Status save(LV2_State_Store_Function store, LV2_State_Handle state) const;
  LV2_State_Status restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle state);

  // For the window, on its thread. One at a time: false where there is another.
  bool attach(Lv2EffectWindow* newWindow);
  void detach();
  HostedEffect& hosted() { return *effect; }
  std::uint32_t controlPort(int index) const {
    return shape.firstControl() + static_cast<std::uint32_t>(index);
  }
  // True once after values have changed that the host was not told of.
  bool takeOutdated() { return outdated.exchange(false); }

 private:
  static constexpr float kNever = std::numeric_limits<float>::quiet_NaN();
  struct Control {
    const float* port = nullptr;
    float seen = kNever;             // in the port at the last run
    std::atomic<bool> held = false;  // by the user, in the window
  };

  Lv2Effect(const Lv2Shape& itsShape, const LV2_URID_Map* map);
  void takeControls();
  bool windowHears(int index) const;
  void process(std::uint32_t frames);
  void silence(std::uint32_t frames) const;

  void parameterEdited(int index, float value) override;
  void editBegun(int index) override;
  void editEnded(int index) override;
  void displayOutdated() override { outdated = true; }

  Lv2Shape shape;
  std::unique_ptr<HostedEffect> effect;
  float* audio[2 + Lv2Shape::kOutputs] = {};  // as the ports stand
  bool wired = false;                         // all of them are connected
  std::vector<Control> controls;
  bool portsAreNew = true;  // no run since activate or restore
  std::atomic<bool> outdated{false};
  Lv2EffectWindow* window = nullptr;
  // The thread on which a state is being taken: what the effect says there is none of the user's.
  std::atomic<std::thread::id> restoring{};
  LV2_URID chunkKey = 0;  // 0: the host has no numbers for URIs
  LV2_URID chunkType = 0;
};
