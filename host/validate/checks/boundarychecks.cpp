// Checks that nothing around the buffers is touched, wherever they lie.
#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <optional>

#include "host/validate/check.h"
#include "host/validate/means/pagebuffer.h"
#include "host/validate/means/rendering.h"
#include "host/validate/means/sound.h"

namespace {

constexpr double kRate = 48000.0;                                       // Hz
constexpr int kLongest = 512;                                           // frames
constexpr std::array kBlocks{1, 3, 16, 31, 64, 100, 511, kLongest, 2};  // frames
constexpr int kRoom = 64;  // frames in front of each buffer, and after it

// A buffer with the same number all around it.
template <typename Sample>
class RoomyBuffer {
 public:
  // offset: samples from a multiple of 64 bytes
  explicit RoomyBuffer(int offset) : space(kLongest + 3 * kRoom, kAround) {
    const std::size_t past = reinterpret_cast<std::uintptr_t>(space.data()) % kLine;
    first = space.data() + kRoom + (kLine - past) / sizeof(Sample) + offset;
  }
  Sample* data() { return first; }
  // A frame that was written outside of the first `frames`.
  std::optional<int> changed(int frames) const {
    for (int place = 1; place <= kRoom; ++place) {
      if (first[-place] != kAround) return -place;
      if (first[frames - 1 + place] != kAround) return frames - 1 + place;
    }
    return std::nullopt;
  }
  void clear() { std::fill(space.begin(), space.end(), kAround); }

 private:
  static constexpr std::size_t kLine = 64;  // bytes
  static constexpr Sample kAround = 12345;  // no sample of ours

  std::vector<Sample> space;
  Sample* first;
};

template <typename Sample>
void playAt(Trial& trial, Subject& subject, int offset) {
  const int inputs = subject.record().numInputs;
  const int outputs = subject.record().numOutputs;
  std::deque<RoomyBuffer<Sample>> buffers;
  for (int pin = 0; pin < inputs + outputs; ++pin) buffers.emplace_back(offset);
  for (const int frames : kBlocks) {
    trial.step("playing %d frames, %zu bytes past a multiple of 64 (%s)", frames,
               static_cast<std::size_t>(offset) * sizeof(Sample), kPrecision<Sample>);
    const auto input = noise<Sample>(trial, inputs, frames);
    std::vector<Sample*> in;
    std::vector<Sample*> out;
    for (int pin = 0; pin < inputs + outputs; ++pin) {
      auto& buffer = buffers[static_cast<std::size_t>(pin)];
      buffer.clear();
      std::fill_n(buffer.data(), frames, Sample(0));
      if (pin < inputs)
        std::copy_n(input[static_cast<std::size_t>(pin)].data(), frames, buffer.data());
      (pin < inputs ? in : out).push_back(buffer.data());
    }
    subject.process(in.data(), out.data(), frames);
    for (int pin = 0; pin < inputs + outputs; ++pin) {
      const bool isInput = pin < inputs;
      if (const auto changed = buffers[static_cast<std::size_t>(pin)].changed(frames))
        trial.fail("frame %d of %s %d is written in a block of %d (%s)", *changed,
                   isInput ? "input" : "output", isInput ? pin + 1 : pin - inputs + 1, frames,
                   kPrecision<Sample>);
    }
  }
}

void playAtAll(Trial& trial, std::span<const int> offsets) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    effect.subject.start(kRate, kLongest, kIsDouble<Sample>);
    for (const int offset : offsets) playAt<Sample>(trial, effect.subject, offset);
    effect.subject.stop();
  });
}

void nothingBeside(Trial& trial) {
  playAtAll(trial, std::array{0});
}

// As where a host cuts a block at an event of its automation.
void anyAddress(Trial& trial) {
  playAtAll(trial, std::array{1, 2, 3, 5});
}

// Buffers and the tables of their pointers end, or begin, where the memory does.
template <typename Sample>
void playAtPageEnds(Trial& trial, Subject& subject, int frames, bool atEnd) {
  trial.step("playing %d frames in buffers %s which there is no memory (%s)", frames,
             atEnd ? "after" : "in front of", kPrecision<Sample>);
  const auto inputs = static_cast<std::size_t>(subject.record().numInputs);
  const auto outputs = static_cast<std::size_t>(subject.record().numOutputs);
  const auto input = noise<Sample>(trial, static_cast<int>(inputs), frames);
  const PageBuffer inTable(inputs * sizeof(Sample*));
  const PageBuffer outTable(outputs * sizeof(Sample*));
  auto** const in = atEnd ? inTable.atEnd<Sample*>() : inTable.atBegin<Sample*>();
  auto** const out = atEnd ? outTable.atEnd<Sample*>() : outTable.atBegin<Sample*>();
  std::deque<PageBuffer> buffers;
  for (std::size_t pin = 0; pin < inputs + outputs; ++pin) {
    const PageBuffer& buffer =
        buffers.emplace_back(static_cast<std::size_t>(frames) * sizeof(Sample));
    Sample* const first = atEnd ? buffer.atEnd<Sample>() : buffer.atBegin<Sample>();
    if (pin < inputs) std::copy_n(input[pin].data(), frames, first);
    (pin < inputs ? in[pin] : out[pin - inputs]) = first;
  }
  subject.process(in, out, frames);
}

void pageEnds(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    effect.subject.start(kRate, kLongest, kIsDouble<Sample>);
    for (const int frames : kBlocks) {
      playAtPageEnds<Sample>(trial, effect.subject, frames, true);
      playAtPageEnds<Sample>(trial, effect.subject, frames, false);
    }
    effect.subject.stop();
  });
}

constexpr std::array kChecks{
    Check{"nothing beside the buffers is written", 3, 30, nothingBeside},
    Check{"buffers may lie at any address", 5, 30, anyAddress},
    Check{"nothing beyond the buffers is read", 6, 30, pageEnds},
};

}  // namespace

std::span<const Check> boundaryChecks() {
  return kChecks;
}
