// Checks of what a session gets back: every program, and the sound, in an effect made anew.
#include <algorithm>
#include <array>
#include <cmath>

#include "host/validate/check.h"
#include "host/validate/means/patience.h"
#include "host/validate/means/stretch.h"
#include "host/validate/means/toldstate.h"

namespace {

constexpr int kMostPrograms = 12;           // looked at; some effects have hundreds
constexpr double kRate = 48000.0;           // Hz
constexpr int kBlock = 512;                 // frames
constexpr int kLength = 24000;              // frames: half a second
constexpr int kGliding = 12000;             // frames at the start that glides may differ in
constexpr double kSameSound = 0.1;          // of the loudness; more is another sound
constexpr double kAsGoodAsSilent = 1.0e-4;  // of full scale
constexpr double kLongEnough = 8.0;         // seconds

void setProgram(Subject& subject, int program) {
  subject.dispatch(effBeginSetProgram);
  subject.dispatch(effSetProgram, 0, program);
  subject.dispatch(effEndSetProgram);
}

std::vector<ToldState> everyProgram(Subject& subject, int programs) {
  std::vector<ToldState> all;
  for (int program = 0; program < programs; ++program) {
    setProgram(subject, program);
    all.push_back(toldState(subject));
  }
  return all;
}

void everyProgramComesBack(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  const int programs = std::min<int>(subject.record().numPrograms, kMostPrograms);
  if (programs < 2) trial.leaveOut("it has no second program");
  const auto changeAll = [&](int number) {
    for (int program = 0; program < programs; ++program) {
      setProgram(subject, program);
      changeAtRandom(trial, subject, number + program);
    }
    return everyProgram(subject, programs);
  };
  for (int round = 0; round < trial.rounds(2); ++round) {
    // Saved and loaded once, so that what is compared can be loaded as it stands.
    setProgram(subject, 0);
    changeAtRandom(trial, subject, 0);
    const ToldState first = toldState(subject);
    changeAll(0);
    const auto written = everyProgram(subject, programs);
    setProgram(subject, 1);
    changeAtRandom(trial, subject, 1);
    const auto kept = everyProgram(subject, programs);
    if (!notBack(written[0], first, kept[0]).empty())
      trial.leaveOut("its programs do not keep what is changed in them");
    trial.step("saving and loading a bank");
    subject.setChunk(subject.chunk());
    const auto saved = everyProgram(subject, programs);
    const int current = trial.randomInt(0, programs - 1);
    setProgram(subject, current);
    const auto bytes = subject.chunk();
    if (bytes.empty()) trial.leaveOut("its chunk is empty");
    const auto changed = changeAll(1);
    setProgram(subject, (current + 1) % programs);
    trial.step("loading a bank of %zu bytes", bytes.size());
    subject.setChunk(bytes);
    const int nowCurrent = toldState(subject).program;
    if (nowCurrent != current) {
      trial.fail("program %d was current when the bank was saved, %d is when it is loaded", current,
                 nowCurrent);
    }
    const auto loaded = everyProgram(subject, programs);
    for (int program = 0; program < programs; ++program) {
      const auto i = static_cast<std::size_t>(program);
      const std::string lost = notBack(saved[i], changed[i], loaded[i]);
      if (!lost.empty()) trial.fail("of program %d: %s", program, lost.c_str());
    }
  }
}

// The current program's, as hosts show it.
void namesComeBack(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  for (const bool programOnly : {false, true}) {
    const char* kind = programOnly ? "program" : "bank";
    changeAtRandom(trial, subject, 1);
    const std::string saved = toldState(subject).name;
    const auto bytes = subject.chunk(programOnly);
    if (bytes.empty()) trial.leaveOut("its chunk is empty");
    changeAtRandom(trial, subject, 2);
    if (toldState(subject).name == saved) trial.leaveOut("its programs take no name");
    trial.step("loading a %s of %zu bytes", kind, bytes.size());
    subject.setChunk(bytes, programOnly);
    const std::string loaded = toldState(subject).name;
    if (loaded != saved) {
      trial.fail("the program was named \"%s\" when the %s was saved and is named \"%s\"",
                 saved.c_str(), kind, loaded.c_str());
    }
  }
}

using Channels = std::vector<std::vector<float>>;

Channels soundOf(Trial& trial, Subject& subject, Stretch<float>& sound, const char* whose) {
  trial.step("playing with %s", whose);
  subject.start(kRate, kBlock);
  sound.playAll(subject, kBlock);
  subject.stop();
  return sound.outputChannels();
}

// The difference's loudness, of the loudness of `a`; after the glides.
double difference(const Channels& a, const Channels& b) {
  double loudness = 0.0;
  double apart = 0.0;
  for (std::size_t pin = 0; pin < a.size(); ++pin) {
    for (std::size_t frame = kGliding; frame < a[pin].size(); ++frame) {
      const auto one = static_cast<double>(a[pin][frame]);
      const double distance = one - static_cast<double>(b[pin][frame]);
      loudness += one * one;
      apart += distance * distance;
    }
  }
  const double silence = kAsGoodAsSilent * kAsGoodAsSilent * kLength;
  return std::sqrt(apart / std::max(loudness, silence));
}

bool isFinite(const Channels& channels) {
  for (const auto& channel : channels) {
    if (!std::all_of(channel.begin(), channel.end(), [](float x) { return std::isfinite(x); }))
      return false;
  }
  return true;
}

// A state that can be loaded as it stands, and what an effect tells that has loaded it.
std::vector<unsigned char> someState(Trial& trial, PluginModule& module, int number,
                                     ToldState& told) {
  Subject source(module);
  changeAtRandom(trial, source, number);
  const auto bytes = source.chunk();
  if (bytes.empty()) trial.leaveOut("its chunk is empty");
  Subject settled(module);
  settled.setChunk(bytes);
  told = toldState(settled);
  return settled.chunk();
}

// false: setting one parameter moves another, so that the state cannot be set by hand.
bool setByHand(Subject& subject, const ToldState& told) {
  const ToldState fresh = toldState(subject);
  for (int index = 0; index < subject.record().numParams; ++index)
    subject.setParameter(index, told.values[static_cast<std::size_t>(index)]);
  return notBack(told, fresh, toldState(subject)).empty();
}

// An effect that is brought to a state by hand, twice, and one that has loaded it.
void soundComesBack(Trial& trial) {
  PluginModule module(trial.plugin());
  std::string remark;
  const Patience patience(kLongEnough);
  for (int round = 0; round < trial.rounds(4) && !patience.over(); ++round) {
    Subject byHand(module);
    Subject byHandAgain(module);
    Subject byState(module);
    needChunk(trial, byHand);
    needSoundIn(trial, byHand);
    ToldState told;
    const auto bytes = someState(trial, module, round, told);
    const ToldState fresh = toldState(byState);
    trial.step("loading %zu bytes into a fresh effect", bytes.size());
    byState.setChunk(bytes);
    const std::string lost = notBack(told, fresh, toldState(byState));
    if (!lost.empty())
      trial.fail("in a fresh effect that the state is loaded into, %s", lost.c_str());
    if (byState.chunk() != bytes) remark = "it saves other bytes than it was loaded with";
    if (!setByHand(byHand, told) || !setByHand(byHandAgain, told)) {
      trial.note("its parameters move each other, so sounds are not compared");
      return;
    }
    Stretch<float> sound(byHand, kLength);
    sound.fillWithNoise(trial);
    const Channels first = soundOf(trial, byHand, sound, "parameters set by hand");
    const Channels again = soundOf(trial, byHandAgain, sound, "the same parameters again");
    const Channels loaded = soundOf(trial, byState, sound, "the state loaded");
    if (!isFinite(first) || difference(first, again) > kSameSound / 10.0) {
      trial.note("its sound is not the same twice, so sounds are not compared");
      return;
    }
    const double apart = difference(first, loaded);
    if (!isFinite(loaded) || apart > kSameSound) {
      trial.fail(
          "a fresh effect that the state is loaded into has the same parameters, but its "
          "sound differs by %.0f %% of its loudness after %d frames",
          100.0 * apart, kGliding);
    }
    if (apart > 0.0 && remark.empty()) remark = "the sound is near, not the same";
  }
  if (!remark.empty()) trial.note("%s", remark.c_str());
}

constexpr std::array kChecks{
    Check{"a bank that is loaded gives back every program", 5, 20, everyProgramComesBack},
    Check{"a state that is loaded gives back the name of its program", 6, 20, namesComeBack},
    Check{"a fresh effect sounds the same once the state is loaded", 5, 30, soundComesBack},
};

}  // namespace

std::span<const Check> restoringChecks() {
  return kChecks;
}
