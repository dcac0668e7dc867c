// An effect that is given one damaged state after the other, and looked at after each.
#include "host/validate/means/damagedstate.h"

#include <algorithm>
#include <cmath>

#include "host/validate/means/pagebuffer.h"
#include "host/validate/means/playingthread.h"
#include "host/validate/means/toldstate.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 64;         // frames; short, as there are many states
constexpr int kLength = 2 * kBlock;

// What the record says is only known once the effect is on.
Subject& switchedOn(Subject& subject) {
  subject.start(kRate, kBlock);
  return subject;
}

}  // namespace

DamagedState::DamagedState(Trial& itsTrial)
    : trial(itsTrial),
      module(itsTrial.plugin()),
      subject(module),
      sound(switchedOn(subject), kLength) {
  needChunk(trial, subject);
  needProcessing(trial, subject);
  values = settledAtRandom(trial, subject, 0).told.values;
  wholeBank = subject.chunk(false);
  wholeProgram = subject.chunk(true);
  if (wholeBank.empty() || wholeProgram.empty()) trial.leaveOut("its chunk is empty");
  sound.fillWithNoise(trial);
  sound.playAll(subject, kBlock);
  if (sound.firstNotFinite() >= 0) trial.leaveOut("its sound is no number before any damage");
}

void DamagedState::loadWhole() {
  trial.step("loading the whole state of %zu bytes", wholeBank.size());
  subject.setChunk(wholeBank);
}

void DamagedState::give(std::span<const unsigned char> bytes, bool programOnly,
                        const std::string& what) {
  const PageBuffer pages(bytes.size());
  auto* const memory = pages.atEnd<unsigned char>();
  std::copy(bytes.begin(), bytes.end(), memory);
  giveAt(memory, static_cast<VstIntPtr>(bytes.size()), programOnly, what);
}

void DamagedState::giveAt(void* bytes, VstIntPtr size, bool programOnly, const std::string& what) {
  loadWhole();
  trial.step("loading %s", what.c_str());
  subject.dispatch(effSetChunk, programOnly ? 1 : 0, size, bytes);
  lookAt(what);
}

void DamagedState::lookAt(const std::string& what) {
  trial.step("asking for parameters after %s was loaded", what.c_str());
  const ToldState told = toldState(subject);
  for (std::size_t i = 0; i < told.values.size(); ++i) {
    if (!std::isfinite(told.values[i])) {
      trial.fail("after %s was loaded, parameter %zu is %g", what.c_str(), i,
                 static_cast<double>(told.values[i]));
    }
  }
  trial.step("playing after %s was loaded", what.c_str());
  sound.playAll(subject, kBlock);
  if (const int frame = sound.firstNotFinite(); frame >= 0)
    trial.fail("after %s was loaded, frame %d is no number", what.c_str(), frame);
  trial.step("saving after %s was loaded", what.c_str());
  const auto saved = subject.chunk();
  if (saved.empty()) trial.fail("after %s was loaded, it gives no state", what.c_str());
  trial.step("loading what was saved after %s", what.c_str());
  subject.setChunk(saved);
}

void DamagedState::checkThatItStillLoads() {
  const ToldState damaged = toldState(subject);
  loadWhole();
  const ToldState loaded = toldState(subject);
  ToldState saved = loaded;
  saved.values = values;
  const std::string lost = notBack(saved, damaged, loaded);
  if (!lost.empty()) trial.fail("the whole state loads no more: %s", lost.c_str());
}
