// Checks of states that are saved and loaded while an audio thread is at work.
#include <array>

#include "host/validate/check.h"
#include "host/validate/means/patience.h"
#include "host/validate/means/playingthread.h"
#include "host/validate/means/toldstate.h"

namespace {

constexpr double kRate = 48000.0;    // Hz
constexpr double kLongEnough = 5.0;  // seconds
constexpr int kStates = 4;

void saveWhilePlaying(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  needProcessing(trial, subject);
  subject.start(kRate, PlayingThread::kBlock);
  settledAtRandom(trial, subject, 0);
  PlayingThread player(trial, subject);
  const Patience patience(kLongEnough);
  for (int round = 0; round < trial.rounds(200) && !patience.over(); ++round) {
    trial.step("saving, time %d, while the audio thread plays", round);
    if (subject.chunk(round % 2 == 1).empty())
      trial.fail("it gives no state while it plays (time %d)", round);
    if (round % 10 == 0) player.waitForBlocks(1);
  }
  player.endAndCheck("while states were saved");
  subject.setChunk(subject.chunk());
}

void loadWhilePlaying(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  needProcessing(trial, subject);
  subject.start(kRate, PlayingThread::kBlock);
  std::vector<std::vector<unsigned char>> states;
  std::vector<ToldState> told;
  for (int i = 0; i < kStates; ++i) {
    told.push_back(settledAtRandom(trial, subject, i).told);
    states.push_back(subject.chunk());
  }
  PlayingThread player(trial, subject);
  const Patience patience(kLongEnough);
  std::size_t last = 0;
  for (int round = 0; round < trial.rounds(200) && !patience.over(); ++round) {
    trial.step("loading, time %d, while the audio thread plays", round);
    last = static_cast<std::size_t>(trial.randomInt(0, kStates - 1));
    subject.setChunk(states[last]);
    if (round % 10 == 0) player.waitForBlocks(1);
  }
  player.endAndCheck("while states were loaded");
  const std::string lost = notBack(told[last], told[(last + 1) % kStates], toldState(subject));
  if (!lost.empty()) trial.fail("after states were loaded while it played, %s", lost.c_str());
}

constexpr std::array kChecks{
    Check{"a state is saved while an audio thread plays", 5, 20, saveWhilePlaying},
    Check{"a state is loaded while an audio thread plays", 8, 20, loadWhilePlaying},
};

}  // namespace

std::span<const Check> stateThreadChecks() {
  return kChecks;
}
