// Checks of fewer channels than the effect has: arrangements, and pins that nobody connects.
#include <algorithm>
#include <array>

#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/means/pagebuffer.h"
#include "host/validate/means/rendering.h"
#include "host/validate/means/sound.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 512;        // frames

VstSpeakerArrangement arrangement(int channels) {
  VstSpeakerArrangement speakers{};
  speakers.type = channels == 1 ? kSpeakerArrMono : kSpeakerArrStereo;
  speakers.numChannels = channels;
  constexpr VstInt32 kMono = 0;  // the speaker's type: left is 1, right 2
  for (int channel = 0; channel < channels; ++channel)
    speakers.speakers[channel].type = channels == 1 ? kMono : channel + 1;
  return speakers;
}

bool accepts(Subject& subject, int inputs, int outputs) {
  VstSpeakerArrangement in = arrangement(inputs);
  VstSpeakerArrangement out = arrangement(outputs);
  return subject.dispatch(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out) > 0;
}

struct Channels {
  int in;
  int out;
};
constexpr std::array kArrangements{Channels{1, 2}, Channels{2, 1}, Channels{1, 1}, Channels{2, 2}};

// Calls `play` for each arrangement that the effect takes, before it is switched on; leaves the
// check out where it takes none.
template <typename Play>
void inEachArrangement(Trial& trial, const Play& play) {
  LoadedEffect effect(trial);
  int accepted = 0;
  for (const auto& [in, out] : kArrangements) {
    trial.step("asking for %d in, %d out", in, out);
    if (!accepts(effect.subject, in, out)) continue;
    ++accepted;
    play(effect.subject, in, out);
  }
  if (accepted == 0) trial.leaveOut("it takes none of the arrangements");
}

// As many pins as the record has by then, which hosts look at.
void playsArrangements(Trial& trial) {
  inEachArrangement(trial, [&](Subject& subject, int in, int out) {
    inEachPrecision(subject, [&]<typename Sample>() {
      subject.start(kRate, kBlock, kIsDouble<Sample>);
      trial.step("playing %d in, %d out (%s)", in, out, kPrecision<Sample>);
      Stretch<Sample> stretch(subject, 2 * kBlock);
      stretch.fillWithNoise(trial);
      stretch.playAll(subject, kBlock);
      // Pins beyond the arrangement may hold anything.
      for (int pin = out; pin < stretch.outputs(); ++pin)
        std::fill_n(stretch.out(pin), stretch.length(), Sample(0));
      needNumbers(trial, stretch, stretch.length(), formatted("as %d in, %d out", in, out).c_str());
      subject.stop();
    });
  });
}

// A table of just so many pointers, after which there is no memory.
template <typename Sample>
void playExactTables(Trial& trial, Subject& subject, int in, int out) {
  trial.step("playing %d in, %d out by tables of so many pointers (%s)", in, out,
             kPrecision<Sample>);
  const PageBuffer inTable(static_cast<std::size_t>(in) * sizeof(Sample*));
  const PageBuffer outTable(static_cast<std::size_t>(out) * sizeof(Sample*));
  auto input = noise<Sample>(trial, in, kBlock);
  auto output = noise<Sample>(trial, out, kBlock);
  for (int pin = 0; pin < in; ++pin)
    inTable.atEnd<Sample*>()[pin] = input[static_cast<std::size_t>(pin)].data();
  for (int pin = 0; pin < out; ++pin)
    outTable.atEnd<Sample*>()[pin] = output[static_cast<std::size_t>(pin)].data();
  subject.start(kRate, kBlock, kIsDouble<Sample>);
  subject.process(inTable.atEnd<Sample*>(), outTable.atEnd<Sample*>(), kBlock);
  subject.stop();
}

void exactTables(Trial& trial) {
  inEachArrangement(trial, [&](Subject& subject, int in, int out) {
    inEachPrecision(subject,
                    [&]<typename Sample>() { playExactTables<Sample>(trial, subject, in, out); });
  });
}

// Some hosts call no pin connected while they switch an effect on, and all of them afterwards.
void lateConnections(Trial& trial) {
  LoadedEffect effect(trial);
  const auto input = noise<float>(trial, effect.subject.record().numInputs, 8 * kBlock);
  const std::vector<int> blocks = equalBlocks(8 * kBlock, kBlock);
  const auto expected = reliablyRendered(trial, effect.module, input, blocks);
  Subject subject(effect.module);
  subject.host().setPinsConnected(false);
  trial.step("switching on with no pin connected");
  subject.start(kRate, kBlock);
  subject.host().setPinsConnected(true);
  Stretch<float> stretch(subject, 8 * kBlock);
  for (int pin = 0; pin < std::min(stretch.inputs(), static_cast<int>(input.size())); ++pin)
    std::copy(input[static_cast<std::size_t>(pin)].begin(),
              input[static_cast<std::size_t>(pin)].end(), stretch.in(pin));
  trial.step("playing after no pin was connected");
  stretch.playAll(subject, kBlock);
  const int end = 8 * kBlock;
  needNumbers(trial, stretch, end, "after no pin was connected while it was switched on");
  const double before = peakOf(expected, 0, end);
  const double after = peakOf(stretch.outputChannels(), 0, end);
  if (before > 0.0 && after == 0.0)
    trial.fail("is silent where no pin was connected while it was switched on, and all later");
  subject.stop();
}

// The pointers are good all the same.
void unconnectedPins(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  subject.host().setPinsConnected(false);
  inEachPrecision(subject, [&]<typename Sample>() {
    trial.step("playing with no pin connected (%s)", kPrecision<Sample>);
    subject.start(kRate, kBlock, kIsDouble<Sample>);
    Stretch<Sample> stretch(subject, 4 * kBlock);
    stretch.fillWithNoise(trial);
    stretch.playAll(subject, kBlock);  // what comes out goes nowhere
    subject.stop();
  });
  subject.host().setPinsConnected(true);
  trial.step("playing with all pins connected again");
  subject.start(kRate, kBlock);
  Stretch<float> stretch(subject, kBlock);
  stretch.fillWithNoise(trial);
  stretch.playAll(subject, kBlock);
  needNumbers(trial, stretch, kBlock, "after blocks with no pin connected");
  subject.stop();
}

constexpr std::array kChecks{
    Check{"pins that are connected late sound", 5, 30, lateConnections},
    Check{"an accepted arrangement of fewer channels plays", 6, 30, playsArrangements},
    Check{"unconnected pins do no harm", 6, 30, unconnectedPins},
    Check{"an accepted arrangement needs no more pointers than channels", 10, 30, exactTables},
};

}  // namespace

std::span<const Check> pinChecks() {
  return kChecks;
}
