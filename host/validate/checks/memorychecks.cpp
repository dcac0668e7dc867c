// Checks with memory that runs out: each allocation of the effect's own code fails in its turn.
#include <array>
#include <chrono>
#include <cmath>
#include <functional>
#include <memory>

#include "host/validate/check.h"
#include "host/validate/means/memoryshortage.h"
#include "host/validate/means/memorywatch.h"
#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 256;        // frames

using Fails = MemoryShortage::Fails;

void needShortage(Trial& trial) {
  if (!MemoryWatch::works()) trial.leaveOut("allocations cannot be let fail in this build");
}

MappedRange rangeOf(const PluginModule& module) {
  return rangeOfBinary(reinterpret_cast<const void*>(module.entryPoint()));
}

// One call of the effect's, and what its host does before and after it.
struct ShortCall {
  const char* what;  // "making it"
  std::function<void()> before = [] {};
  std::function<void()> call;
  std::function<void()> after = [] {};
};

// Returns whether an allocation failed: there is another one to try.
bool callWithout(Trial& trial, const PluginModule& module, const ShortCall& tested, long number,
                 Fails fails) {
  const char* which = fails == Fails::one ? "" : " and all after it";
  tested.before();
  trial.step("%s, with allocation %ld%s getting no memory", tested.what, number + 1, which);
  bool throws = false;
  {
    const MemoryShortage shortage(rangeOf(module), number, fails);
    try {
      tested.call();
    } catch (...) {
      throws = true;
    }
  }
  const bool failed = MemoryShortage::hasFailed();
  if (throws)
    trial.fail("%s throws an exception at its host when allocation %ld%s gets no memory",
               tested.what, number + 1, which);
  trial.step("going on after %s, with allocation %ld%s having got no memory", tested.what,
             number + 1, which);
  tested.after();
  return failed;
}

// Returns how many allocations the call makes.
long failEach(Trial& trial, const PluginModule& module, const ShortCall& tested) {
  using Clock = std::chrono::steady_clock;
  constexpr auto kLongest = std::chrono::seconds(15);
  const auto end = Clock::now() + kLongest;
  long number = 0;
  bool goesOn = true;
  while (goesOn && Clock::now() < end) {
    goesOn = callWithout(trial, module, tested, number, Fails::one);
    if (goesOn) callWithout(trial, module, tested, number, Fails::allFromThere);
    number += goesOn ? 1 : 0;
  }
  return number;
}

// The effect still is one.
void lookAt(Trial& trial, Subject& subject) {
  for (VstInt32 index = 0; index < subject.record().numParams; ++index) {
    const float value = subject.parameter(index);
    if (!std::isfinite(value))
      trial.fail("parameter %d is %g after an allocation got no memory", index, value);
  }
  if (!subject.processes()) return;
  subject.start(kRate, kBlock);
  Stretch<float> stretch(subject, kBlock);
  stretch.fillWithNoise(trial);
  stretch.playAll(subject, kBlock);
  subject.stop();
  if (stretch.firstNotFinite() >= 0)
    trial.fail("its sound has samples that are no numbers after an allocation got no memory");
}

void isMadeWithoutMemory(Trial& trial) {
  needShortage(trial);
  PluginModule module(trial.plugin());
  { const Subject first(module); }  // what is made once, is
  HostCallback callback;
  AEffect* effect = nullptr;
  const HostCallback::Scope scope(&callback);
  const long made = failEach(trial, module,
                             {.what = "making it",
                              .call = [&] { effect = module.entryPoint()(&HostCallback::entry); },
                              .after =
                                  [&] {
                                    if (effect == nullptr) return;
                                    effect->dispatcher(effect, effOpen, 0, 0, nullptr, 0.0F);
                                    effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
                                    effect = nullptr;
                                  }});
  // There is memory enough: an effect that makes no more of its kind may do so.
  const auto makeAnother = [&] {
    trial.step("making it");
    effect = module.entryPoint()(&HostCallback::entry);
    if (effect == nullptr) trial.leaveOut("it refuses another instance");
  };
  const long opened =
      failEach(trial, module,
               {.what = "opening it",
                .before = makeAnother,
                .call = [&] { effect->dispatcher(effect, effOpen, 0, 0, nullptr, 0.0F); },
                .after = [&] { effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F); }});
  const long closed =
      failEach(trial, module,
               {.what = "closing it",
                .before =
                    [&] {
                      makeAnother();
                      effect->dispatcher(effect, effOpen, 0, 0, nullptr, 0.0F);
                    },
                .call = [&] { effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F); }});
  trial.note("%ld allocations when it is made, %ld when opened, %ld when closed", made, opened,
             closed);
}

void keepsItsStateWithoutMemory(Trial& trial) {
  needShortage(trial);
  PluginModule module(trial.plugin());
  std::unique_ptr<Subject> subject = std::make_unique<Subject>(module);
  needChunk(trial, *subject);
  std::vector<unsigned char> state = subject->chunk();
  // Fresh ones, since an effect may keep the memory of its last state.
  const auto makeAgain = [&] {
    subject.reset();
    subject = std::make_unique<Subject>(module);
  };
  void* bytes = nullptr;
  VstIntPtr size = 0;
  const long saving =
      failEach(trial, module,
               {.what = "saving its state",
                .before = makeAgain,
                .call = [&] { size = subject->dispatch(effGetChunk, 0, 0, &bytes); },
                .after =
                    [&] {
                      const auto* first = static_cast<const unsigned char*>(bytes);
                      if (bytes != nullptr && size > 0)
                        state = std::vector<unsigned char>(first, first + size);
                      bytes = nullptr;
                      lookAt(trial, *subject);
                    }});
  const long loading = failEach(
      trial, module,
      {.what = "loading its state",
       .before = makeAgain,
       .call =
           [&] {
             subject->dispatch(effSetChunk, 0, static_cast<VstIntPtr>(state.size()), state.data());
           },
       .after = [&] { lookAt(trial, *subject); }});
  trial.note("%ld allocations when it is saved, %ld when loaded", saving, loading);
}

constexpr std::array kChecks{
    Check{"it bears a lack of memory when it is made, opened and closed", 10, 90,
          isMadeWithoutMemory},
    Check{"it bears a lack of memory when its state is saved and loaded", 10, 60,
          keepsItsStateWithoutMemory},
};

}  // namespace

std::span<const Check> memoryChecks() {
  return kChecks;
}
