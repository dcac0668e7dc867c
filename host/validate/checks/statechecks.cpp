// Checks of the state as it is saved and loaded by every host.
#include <algorithm>
#include <array>

#include "host/validate/check.h"
#include "host/validate/means/pagebuffer.h"
#include "host/validate/means/toldstate.h"

namespace {

const char* kindOf(bool programOnly) {
  return programOnly ? "program" : "bank";
}

// The state's bytes: they are the effect's, and may go with the next call that saves.
std::span<const unsigned char> save(Subject& subject, bool programOnly) {
  void* bytes = nullptr;
  const VstIntPtr size = subject.dispatch(effGetChunk, programOnly ? 1 : 0, 0, &bytes);
  if (bytes == nullptr || size <= 0) return {};
  return {static_cast<const unsigned char*>(bytes), static_cast<std::size_t>(size)};
}

void savedTwice(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  for (int round = 0; round < trial.rounds(10); ++round) {
    for (const bool programOnly : {false, true}) {
      trial.step("saving the %s twice", kindOf(programOnly));
      const auto first = subject.chunk(programOnly);
      if (first.empty())
        trial.fail("it says that it has a chunk, and gives none for a %s", kindOf(programOnly));
      const auto second = subject.chunk(programOnly);
      if (first.size() != second.size()) {
        trial.fail("the %s has %zu bytes and, saved again at once, %zu", kindOf(programOnly),
                   first.size(), second.size());
      }
      const auto differs = std::mismatch(first.begin(), first.end(), second.begin());
      if (differs.first != first.end()) {
        trial.fail("byte %td of the %s's %zu is %d and, saved again at once, %d",
                   differs.first - first.begin(), kindOf(programOnly), first.size(), *differs.first,
                   *differs.second);
      }
    }
    changeAtRandom(trial, subject, round);
  }
}

// programOnly: the current program's state; else the bank's. Switched on in every other round, as
// hosts load at any time.
void comesBack(Trial& trial, bool programOnly) {
  constexpr double kRate = 48000.0;  // Hz
  constexpr int kBlock = 512;        // frames
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  const int programs = subject.record().numPrograms;
  StuckParameters stuck;
  for (int round = 0; round < trial.rounds(10); ++round) {
    const bool isOn = round % 2 == 1;
    if (isOn) subject.start(kRate, kBlock);
    if (programs > 1) subject.dispatch(effSetProgram, 0, trial.randomInt(0, programs - 1));
    const SettledState settled = settledAtRandom(trial, subject, round, programOnly);
    const ToldState& saved = settled.told;
    stuck.add(settled);
    trial.step("saving a %s", kindOf(programOnly));
    const auto bytes = subject.chunk(programOnly);
    if (programs > 1 && !programOnly)
      subject.dispatch(effSetProgram, 0, trial.randomInt(0, programs - 1));
    changeAtRandom(trial, subject, round + 1);
    const ToldState changed = toldState(subject);
    trial.step("loading a %s of %zu bytes", kindOf(programOnly), bytes.size());
    subject.setChunk(bytes, programOnly);
    const ToldState loaded = toldState(subject);
    if (const std::string lost = notBack(saved, changed, loaded); !lost.empty()) {
      trial.fail("after a %s is loaded%s, %s", kindOf(programOnly),
                 isOn ? " while switched on" : "", lost.c_str());
    }
    if (const std::string nearly = nearlyBack(saved, loaded); !nearly.empty())
      trial.note("%s", nearly.c_str());
    subject.stop();
  }
  if (const std::string lost = stuck.found(); !lost.empty())
    trial.fail("after a %s is loaded, %s", kindOf(programOnly), lost.c_str());
}

void bankComesBack(Trial& trial) {
  comesBack(trial, false);
}

void programComesBack(Trial& trial) {
  comesBack(trial, true);
}

// Hosts ask between saving and reading. Some effects give the memory that they work in, which
// moves with their parameters: hosts that move them meanwhile have hardly been seen.
void staysAsItIs(Trial& trial) {
  constexpr int kMoves = 10;  // strictness
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  const auto bytes = save(subject, false);
  if (bytes.empty()) trial.leaveOut("its chunk is empty");
  const std::vector<unsigned char> copy(bytes.begin(), bytes.end());
  const auto compare = [&](const char* calls) {
    trial.step("reading what it saved to, after %s", calls);
    const auto differs = std::mismatch(copy.begin(), copy.end(), bytes.begin());
    if (differs.first == copy.end()) return;
    trial.fail(
        "byte %td of the %zu that it saved is %d, and %d after %s: hosts take the bytes later",
        differs.first - copy.begin(), copy.size(), *differs.first, *differs.second, calls);
  };
  trial.step("asking for parameters after saving");
  toldState(subject);
  compare("it was asked for its parameters");
  if (trial.strictness() < kMoves) return;
  trial.step("moving parameters after saving");
  changeAtRandom(trial, subject, 0);
  compare("its parameters moved");
}

void readNoFurther(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  for (int round = 0; round < trial.rounds(5); ++round) {
    for (const bool programOnly : {false, true}) {
      changeAtRandom(trial, subject, round);
      const auto bytes = subject.chunk(programOnly);
      if (bytes.empty()) trial.leaveOut("its chunk is empty");
      const PageBuffer pages(bytes.size());
      auto* const memory = pages.atEnd<unsigned char>();
      std::copy(bytes.begin(), bytes.end(), memory);
      trial.step("loading a %s of %zu bytes, after which nothing can be read", kindOf(programOnly),
                 bytes.size());
      subject.dispatch(effSetChunk, programOnly ? 1 : 0, static_cast<VstIntPtr>(bytes.size()),
                       memory);
      if (!std::equal(bytes.begin(), bytes.end(), memory))
        trial.note("it writes into the host's bytes as it loads a %s", kindOf(programOnly));
    }
  }
}

// `subject` saves, and `to` loads from the memory that it was saved to.
void loadUncopied(Trial& trial, Subject& subject, Subject& to) {
  const char* who = &to == &subject ? "the same" : "another";
  for (int round = 0; round < trial.rounds(5); ++round) {
    for (const bool programOnly : {false, true}) {
      const ToldState saved = settledAtRandom(trial, subject, round, programOnly).told;
      const auto bytes = save(subject, programOnly);
      changeAtRandom(trial, to, round + 1);
      const ToldState changed = toldState(to);
      trial.step("loading a %s into %s effect from the memory it was saved to", kindOf(programOnly),
                 who);
      to.dispatch(effSetChunk, programOnly ? 1 : 0, static_cast<VstIntPtr>(bytes.size()),
                  const_cast<unsigned char*>(bytes.data()));
      const std::string lost = notBack(saved, changed, toldState(to));
      // Single ones may depend on each other, which is another check's.
      if (!lost.empty() && !isLoaded(saved, changed, toldState(to))) {
        trial.fail("a %s is loaded into %s effect from the memory it was saved to: %s",
                   kindOf(programOnly), who, lost.c_str());
      }
    }
  }
}

// Hosts that copy from one effect to another of its kind have no reason to copy the bytes first.
void fromAnothersMemory(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  Subject other(module);
  needChunk(trial, subject);
  loadUncopied(trial, subject, other);
}

// Many effects give up what they saved when they load, and nothing forbids them to.
void fromItsOwnMemory(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  needChunk(trial, subject);
  loadUncopied(trial, subject, subject);
}

constexpr std::array kChecks{
    Check{"a state saved twice is the same", 4, 20, savedTwice},
    Check{"a bank that is loaded gives back what was saved", 4, 20, bankComesBack},
    Check{"a program that is loaded gives back what was saved", 4, 20, programComesBack},
    Check{"saved bytes stay as they are while the host uses them", 5, 20, staysAsItIs},
    Check{"a state is read no further than its size", 5, 20, readNoFurther},
    Check{"a state loads from the memory of another effect", 6, 20, fromAnothersMemory},
    Check{"a state loads from the memory it was saved to", 10, 20, fromItsOwnMemory},
};

}  // namespace

std::span<const Check> stateChecks() {
  return kChecks;
}
