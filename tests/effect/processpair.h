// The plug-in and the reference side by side: both get every call and every buffer, and are
// compared after each block.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "effect/trelvan.h"
#include "tests/effect/samebits.h"
#include "tests/support/processhost.h"
#include "tests/support/reference.h"
#include "tests/support/testsignals.h"

// What the host hands over for the four channels: a number of one of four buffers, or none.
struct Layout {
  static constexpr int kNone = -1;
  static constexpr int kBuffers = 4;

  const char* name;
  int inL, inR, outL, outR;
  bool rightInConnected = true;
  bool rightOutConnected = true;
  int arrangedIns = 2;  // channels of the input's speaker arrangement
};

constexpr Layout kStereo = {"stereo", 0, 1, 2, 3};

class ProcessPair {
 public:
  ProcessPair() : plugin(processHost), reference(std::make_unique<Reference>()) {
    plugin.getAeffect()->user = &pins;
    plugin.setBlockSize(kAnnounced);
  }

  void setSampleRate(float hz) {
    plugin.setSampleRate(hz);
    reference->setSampleRate(hz);
  }
  void setParameter(int index, float value) {
    plugin.setParameter(index, value);
    reference->setParameter(index, value);
  }
  // Takes the preset's values from the bank, whose contents are another test's concern. What
  // earlier automation left there outside 0..1 is not applied.
  void setPreset(int number) {
    plugin.setPresetNo(number);
    for (int index = 0; index < 5; ++index) {
      const float value = plugin.preset(number).parameter(index);
      if (value >= 0.0F && value <= 1.0F) reference->setParameter(index, value);
    }
  }
  void resume() {
    plugin.resume();
    reference->resume();
  }
  void suspend() {
    plugin.suspend();
    reference->suspend();
  }

  // One block through both. Every buffer is compared whole, those that nothing should write among
  // them, and so is the meter. frames: as many as the signal has from `first` on, at most.
  template <typename Sample>
  testing::AssertionResult block(const Stereo<Sample>& signal, std::size_t first, int frames,
                                 const Layout& layout = kStereo) {
    arrange(layout);
    auto mine = buffers(signal, first, frames);
    auto theirs = mine;
    run(mine, layout, [&](Sample** in, Sample** out) { pluginProcess(in, out, frames); });
    run(theirs, layout,
        [&](Sample** in, Sample** out) { referenceProcess(in, out, frames, layout); });
    for (std::size_t buffer = 0; buffer < mine.size(); ++buffer) {
      for (std::size_t i = 0; i < mine[buffer].size(); ++i) {
        if (sameBits(mine[buffer][i], theirs[buffer][i])) continue;
        return testing::AssertionFailure()
               << layout.name << ": buffer " << buffer << ", frame " << first + i << ": "
               << mine[buffer][i] << " is not " << theirs[buffer][i];
      }
    }
    if (!readAlike(plugin.getWidthMeter(), reference->getWidthMeter())) {
      return testing::AssertionFailure()
             << layout.name << ": after frame " << first + static_cast<std::size_t>(frames)
             << " the meter reads " << plugin.getWidthMeter() << ", not "
             << reference->getWidthMeter();
    }
    return testing::AssertionSuccess();
  }

  // The whole signal, cut into blocks of the sizes given, again and again.
  template <typename Sample>
  testing::AssertionResult all(const Stereo<Sample>& signal, const std::vector<int>& sizes = {512},
                               const Layout& layout = kStereo) {
    std::size_t first = 0;
    for (std::size_t turn = 0; first < signal.left.size(); ++turn) {
      const int frames =
          std::min(sizes[turn % sizes.size()], static_cast<int>(signal.left.size() - first));
      if (const auto result = block(signal, first, frames, layout); !result) return result;
      first += static_cast<std::size_t>(frames);
    }
    return testing::AssertionSuccess();
  }

  Trelvan plugin;
  std::unique_ptr<Reference> reference;  // on the heap: the delay line is in it

 private:
  static constexpr int kAnnounced = 1024;  // frames; blocks may be longer

  template <typename Sample>
  using Buffers = std::array<std::vector<Sample>, Layout::kBuffers>;

  static std::size_t at(int buffer) { return static_cast<std::size_t>(buffer); }

  // The plug-in sums its levels up in another order, so the last bit of a reading may be another.
  static bool readAlike(float mine, float theirs) {
    return mine == theirs || std::nextafter(mine, theirs) == theirs;
  }

  // The signal in the first two buffers, and in the others what must not survive.
  template <typename Sample>
  static Buffers<Sample> buffers(const Stereo<Sample>& signal, std::size_t first, int frames) {
    const auto from = static_cast<std::ptrdiff_t>(first);
    const auto to = from + frames;
    Buffers<Sample> result;
    result[0].assign(signal.left.begin() + from, signal.left.begin() + to);
    result[1].assign(signal.right.begin() + from, signal.right.begin() + to);
    result[2].assign(at(frames), Sample(7));
    result[3].assign(at(frames), Sample(-7));
    return result;
  }

  void arrange(const Layout& layout) {
    pins = {layout.rightInConnected, layout.rightOutConnected};
    if (layout.arrangedIns == arrangedIns) return;
    arrangedIns = layout.arrangedIns;
    VstSpeakerArrangement ins{};
    VstSpeakerArrangement outs{};
    ins.numChannels = layout.arrangedIns;
    outs.numChannels = 2;
    plugin.setSpeakerArrangement(&ins, &outs);
    reference->setSpeakerArrangement(layout.arrangedIns, 2);
  }

  template <typename Sample, typename Process>
  static void run(Buffers<Sample>& data, const Layout& layout, Process&& process) {
    const auto pointer = [&](int buffer) {
      return buffer == Layout::kNone ? nullptr : data[at(buffer)].data();
    };
    Sample* ins[] = {pointer(layout.inL), pointer(layout.inR)};
    Sample* outs[] = {pointer(layout.outL), pointer(layout.outR)};
    process(ins, outs);
  }

  void pluginProcess(float** in, float** out, int frames) {
    plugin.processReplacing(in, out, frames);
  }
  void pluginProcess(double** in, double** out, int frames) {
    plugin.processDoubleReplacing(in, out, frames);
  }
  void referenceProcess(float** in, float** out, int frames, const Layout& layout) {
    reference->processReplacing(in, out, frames, layout.rightInConnected, layout.rightOutConnected);
  }
  void referenceProcess(double** in, double** out, int frames, const Layout& layout) {
    reference->processDoubleReplacing(in, out, frames, layout.rightInConnected,
                                      layout.rightOutConnected);
  }

  Pins pins;
  int arrangedIns = 2;
};

// Runs a typed test suite in both precisions, under these names.
using Precisions = testing::Types<float, double>;
struct PrecisionNames {
  template <typename Sample>
  static std::string GetName(int) {
    return sizeof(Sample) == 4 ? "Single" : "Double";
  }
};
