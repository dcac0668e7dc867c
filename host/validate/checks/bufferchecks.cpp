// Checks of the buffers that hosts give: in place, shared, at any address, and nothing around them.
#include <algorithm>
#include <array>

#include "host/validate/check.h"
#include "host/validate/means/rendering.h"
#include "host/validate/means/sound.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 512;        // frames
constexpr int kFrames = 8 * kBlock;

template <typename Sample>
using Pointers = std::vector<Sample*>;

// Where inputs and outputs of a stretch stand at a frame.
template <typename Sample>
Pointers<Sample> inputsAt(Stretch<Sample>& stretch, int begin) {
  Pointers<Sample> pointers;
  for (int pin = 0; pin < stretch.inputs(); ++pin) pointers.push_back(stretch.in(pin) + begin);
  return pointers;
}
template <typename Sample>
Pointers<Sample> outputsAt(Stretch<Sample>& stretch, int begin) {
  Pointers<Sample> pointers;
  for (int pin = 0; pin < stretch.outputs(); ++pin) pointers.push_back(stretch.out(pin) + begin);
  return pointers;
}

// Outputs into the inputs' own buffers, `turn` pins further.
template <typename Sample>
void playInPlace(Subject& subject, Stretch<Sample>& stretch, int begin, int frames, int turn) {
  Pointers<Sample> in = inputsAt(stretch, begin);
  const Pointers<Sample> out = outputsAt(stretch, begin);
  const std::size_t shared = std::min(in.size(), out.size());
  for (std::size_t pin = 0; pin < shared; ++pin) {
    Sample* const place = out[(pin + static_cast<std::size_t>(turn)) % shared];
    std::copy_n(in[pin], frames, place);
    in[pin] = place;
  }
  Pointers<Sample> outTable = out;
  subject.process(in.data(), outTable.data(), frames);
}

void needSameInPlace(Trial& trial, int turn, const char* what) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    const auto input = noise<Sample>(trial, effect.subject.record().numInputs, kFrames);
    const std::vector<int> blocks = equalBlocks(kFrames, kBlock);
    const auto expected = reliablyRendered(trial, effect.module, input, blocks);
    Playing<Sample> playing;
    playing.play = [&](Subject& subject, Stretch<Sample>& stretch, int begin, int frames) {
      trial.step("playing %s (%s)", what, kPrecision<Sample>);
      playInPlace(subject, stretch, begin, frames, turn);
    };
    needSameSound(trial, expected, rendered(trial, effect.module, input, blocks, playing), what);
  });
}

void inPlace(Trial& trial) {
  needSameInPlace(trial, 0, "in place");
}

void crossed(Trial& trial) {
  needSameInPlace(trial, 1, "with each output in another input's buffer");
}

// As hosts give a mono track, or silence, to all inputs.
void sharedInput(Trial& trial) {
  LoadedEffect effect(trial);
  if (effect.subject.record().numInputs < 2) trial.leaveOut("it has one input");
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    auto input = noise<Sample>(trial, effect.subject.record().numInputs, kFrames);
    for (auto& channel : input) channel = input.front();
    const std::vector<int> blocks = equalBlocks(kFrames, kBlock);
    const auto expected = reliablyRendered(trial, effect.module, input, blocks);
    Playing<Sample> playing;
    playing.play = [&](Subject& subject, Stretch<Sample>& stretch, int begin, int frames) {
      trial.step("playing with one buffer for all inputs (%s)", kPrecision<Sample>);
      Pointers<Sample> in = inputsAt(stretch, begin);
      std::fill(in.begin(), in.end(), in.front());
      subject.process(in.data(), outputsAt(stretch, begin).data(), frames);
    };
    needSameSound(trial, expected, rendered(trial, effect.module, input, blocks, playing),
                  "with one buffer for all inputs");
  });
}

// As hosts do whose outputs are thrown away. What is in it then is anybody's guess.
void sharedOutput(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  if (subject.record().numOutputs < 2) trial.leaveOut("it has one output");
  inEachPrecision(subject, [&]<typename Sample>() {
    subject.start(kRate, kBlock, kIsDouble<Sample>);
    Stretch<Sample> stretch(subject, kBlock);
    for (int block = 0; block < trial.rounds(8); ++block) {
      trial.step("playing with one buffer for all outputs (%s)", kPrecision<Sample>);
      stretch.fillWithNoise(trial);
      Pointers<Sample> out = outputsAt(stretch, 0);
      std::fill(out.begin(), out.end(), out.front());
      subject.process(inputsAt(stretch, 0).data(), out.data(), kBlock);
    }
    spoilOutputs(stretch);
    stretch.playAll(subject, kBlock);
    needNumbers(trial, stretch, kBlock, "after blocks with one buffer for all outputs");
    subject.stop();
  });
}

// In a host one buffer is the input of several effects.
void inputsStay(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  inEachPrecision(subject, [&]<typename Sample>() {
    const auto input = noise<Sample>(trial, subject.record().numInputs, kFrames);
    Playing<Sample> playing;
    playing.play = [&](Subject& played, Stretch<Sample>& stretch, int begin, int frames) {
      trial.step("playing with outputs of their own (%s)", kPrecision<Sample>);
      stretch.play(played, begin, frames);
      for (int pin = 0; pin < stretch.inputs(); ++pin) {
        const Sample* given = input[static_cast<std::size_t>(pin)].data();
        const Sample* left = stretch.in(pin);
        const auto end = begin + frames;
        const auto changed = std::mismatch(given + begin, given + end, left + begin);
        if (changed.first != given + end)
          trial.fail("frame %d of input %d is changed, with outputs of their own (%s)",
                     static_cast<int>(changed.first - given), pin + 1, kPrecision<Sample>);
      }
    };
    rendered(trial, effect.module, input, equalBlocks(kFrames, kBlock), playing);
  });
}

constexpr std::array kChecks{
    Check{"sound is the same in place", 5, 30, inPlace},
    Check{"inputs may share one buffer", 5, 30, sharedInput},
    Check{"inputs are left as they are", 6, 30, inputsStay},
    Check{"outputs may share one buffer", 6, 30, sharedOutput},
    Check{"sound is the same with each output in another input", 10, 30, crossed},
};

}  // namespace

std::span<const Check> bufferChecks() {
  return kChecks;
}
