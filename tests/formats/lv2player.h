// One LV2 plug-in, made and played by its descriptor as a host does it.
#pragma once

#include <gtest/gtest.h>
#include <lv2/core/lv2.h>
#include <lv2/state/state.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "tests/formats/lv2kept.h"
#include "tests/support/testsignals.h"

extern "C" const LV2_Descriptor* lv2_descriptor(std::uint32_t index);

constexpr std::uint32_t kLv2Stereo = 0;  // the descriptors' indexes
constexpr std::uint32_t kLv2Mono = 1;
constexpr std::size_t kLv2Controls = 5;
using Lv2Values = std::vector<float>;  // of the control ports, in their order

class Lv2Player {
 public:
  explicit Lv2Player(const Lv2Values& values, double rate = 44100.0,
                     std::uint32_t index = kLv2Stereo)
      : descriptor(*lv2_descriptor(index)), inputs(index == kLv2Mono ? 1 : 2), controls(values) {
    handle = descriptor.instantiate(&descriptor, rate, "", numbers.features());
    EXPECT_NE(handle, nullptr);
    for (std::size_t i = 0; i < controls.size(); ++i)
      connect(static_cast<std::uint32_t>(inputs + 2 + i), &controls[i]);
  }
  ~Lv2Player() { descriptor.cleanup(handle); }
  Lv2Player(const Lv2Player&) = delete;
  Lv2Player& operator=(const Lv2Player&) = delete;

  void connect(std::uint32_t port, void* place) { descriptor.connect_port(handle, port, place); }
  void activate() { descriptor.activate(handle); }
  void deactivate() { descriptor.deactivate(handle); }
  void run(std::size_t frames) { descriptor.run(handle, static_cast<std::uint32_t>(frames)); }
  const LV2_State_Interface& state() const {
    return *static_cast<const LV2_State_Interface*>(
        descriptor.extension_data(LV2_STATE__interface));
  }

  // Into blocks of these sizes in turn. The left channel alone where there is one input.
  Stereo<float> play(Stereo<float> in, std::initializer_list<std::size_t> blocks = {512}) {
    const std::size_t frames = in.left.size();
    Stereo<float> out{std::vector<float>(frames), std::vector<float>(frames)};
    auto block = blocks.begin();
    for (std::size_t done = 0; done < frames;) {
      const std::size_t now = std::min(*block, frames - done);
      connectAudio(in.left.data() + done, in.right.data() + done, out.left.data() + done,
                   out.right.data() + done);
      run(now);
      done += now;
      if (++block == blocks.end()) block = blocks.begin();
    }
    return out;
  }
  void connectAudio(float* inLeft, float* inRight, float* outLeft, float* outRight) {
    connect(0, inLeft);
    if (inputs == 2) connect(1, inRight);
    connect(static_cast<std::uint32_t>(inputs), outLeft);
    connect(static_cast<std::uint32_t>(inputs) + 1, outRight);
  }

  Lv2Numbers numbers;
  const LV2_Descriptor& descriptor;
  std::size_t inputs;
  Lv2Values controls;
  LV2_Handle handle = nullptr;
};
