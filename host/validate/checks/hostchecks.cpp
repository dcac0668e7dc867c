// Checks with hosts that say little, and hosts that call back while they are asked.
#include <array>
#include <atomic>

#include "host/validate/check.h"
#include "host/validate/means/guardedtext.h"
#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 512;        // frames

VstIntPtr answerNothing(AEffect*, VstInt32, VstInt32, VstIntPtr, void*, float) {
  return 0;
}

VstIntPtr answerVersionOnly(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
  return opcode == audioMasterVersion ? kVstVersion : 0;
}

// What a host does with an effect that it has just found.
void use(Trial& trial, Subject& subject) {
  const AEffect& record = subject.record();
  trial.step("asking for its name");
  givenText(subject, effGetEffectName);
  for (VstInt32 index = 0; index < record.numParams; ++index) {
    trial.step("getting, setting and showing parameter %d", index);
    subject.setParameter(index, subject.parameter(index));
    givenText(subject, effGetParamDisplay, index);
  }
  trial.step("switching it on");
  subject.start(kRate, kBlock);
  if (subject.processes()) {
    trial.step("processing");
    Stretch<float> stretch(subject, kBlock);
    stretch.fillWithNoise(trial);
    stretch.playAll(subject, kBlock);
    stretch.playAll(subject, kBlock);
  }
  if (subject.has(effFlagsProgramChunks)) {
    trial.step("saving and loading its state");
    subject.setChunk(subject.chunk());
  }
  trial.step("switching it off");
  subject.stop();
}

// Scanners know their version and nothing more: no rate, no time, no name of their own.
void bearsVersionOnly(Trial& trial) {
  PluginModule module(trial.plugin());
  trial.step("making the effect in a host that answers its version and nothing else");
  Subject subject(module, false, answerVersionOnly);
  use(trial, subject);
  trial.step("closing it");
}

void bearsNoAnswer(Trial& trial) {
  PluginModule module(trial.plugin());
  trial.step("making the effect in a host that answers 0 to everything");
  // Which is the version of a host from before version 2: an effect may refuse that.
  AEffect* effect = module.entryPoint()(answerNothing);
  if (effect == nullptr) {
    trial.note("refuses a host that answers 0 to everything");
    return;
  }
  effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
  Subject subject(module, false, answerNothing);
  use(trial, subject);
  trial.step("closing it");
}

// Of the host that calls back. The check has one effect at a time.
std::atomic<bool> within = false;         // a call back, from which no other one begins
std::atomic<VstInt32> askedUnready = -1;  // opcode asked for with a record without dispatcher
std::atomic<int> callsBack = 0;

void callBack(AEffect* effect, VstInt32 opcode, VstInt32 index, float opt) {
  const auto dispatch = [&](VstInt32 to, VstInt32 at, VstIntPtr value, void* ptr, float rate) {
    effect->dispatcher(effect, to, at, value, ptr, rate);
  };
  switch (opcode) {
    case audioMasterGetSampleRate:
      dispatch(effSetSampleRate, 0, 0, nullptr, 44100.0F);
      break;
    case audioMasterGetBlockSize:
      dispatch(effSetBlockSize, 0, 1024, nullptr, 0.0F);
      break;
    case audioMasterAutomate:
      effect->setParameter(effect, index, opt);
      effect->getParameter(effect, index);
      givenText([&](char* text) { dispatch(effGetParamDisplay, index, 0, text, 0.0F); });
      break;
    case audioMasterUpdateDisplay:
    case audioMasterIOChanged:
      dispatch(effGetProgram, 0, 0, nullptr, 0.0F);
      givenText([&](char* text) { dispatch(effGetProgramName, 0, 0, text, 0.0F); });
      if (effect->numParams > 0) effect->getParameter(effect, 0);
      break;
    default:
      return;
  }
  ++callsBack;
}

VstIntPtr answerByCallingBack(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                              void* ptr, float opt) {
  if (effect != nullptr && !within.exchange(true)) {
    if (effect->dispatcher == nullptr)
      askedUnready = opcode;
    else
      callBack(effect, opcode, index, opt);
    within = false;
  }
  return HostCallback::entry(effect, opcode, index, value, ptr, opt);
}

// Scanners tell the rate and the block size while they are asked for them, even while the effect is
// being made; others set a parameter again while they are told of it.
void bearsCallsBack(Trial& trial) {
  PluginModule module(trial.plugin());
  trial.step("making the effect in a host that tells the rate while it is asked for it");
  Subject subject(module, false, answerByCallingBack);
  if (askedUnready >= 0)
    trial.fail("asks its host (opcode %d) with a record that has no dispatcher yet",
               askedUnready.load());
  use(trial, subject);
  trial.note("called back %d times", callsBack.load());
}

constexpr std::array kChecks{
    Check{"it bears a host that knows its version only", 4, 60, bearsVersionOnly},
    Check{"it bears a host that answers nothing", 5, 60, bearsNoAnswer},
    Check{"it bears a host that calls back while it is asked", 6, 60, bearsCallsBack},
};

}  // namespace

std::span<const Check> hostChecks() {
  return kChecks;
}
