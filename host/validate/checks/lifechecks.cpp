// Checks of an effect's life: beside others, in the orders of real hosts, and ended by force.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <memory>
#include <vector>

#include "host/validate/check.h"
#include "host/validate/means/stretch.h"
#include "host/validate/subject.h"
#include "host/vst/effectrecord.h"

namespace {

constexpr double kRate = 48000.0;  // Hz
constexpr int kBlock = 512;        // frames
constexpr int kInstances = 4;

// One block, where it processes at all.
void playBlock(Trial& trial, Subject& subject) {
  if (!subject.processes()) return;
  Stretch<float> stretch(subject, kBlock);
  stretch.fillWithNoise(trial);
  stretch.playAll(subject, kBlock);
}

void livesBesideOthers(Trial& trial) {
  PluginModule module(trial.plugin());
  std::deque<std::unique_ptr<Subject>> all;
  for (int number = 0; number < kInstances; ++number) {
    trial.step("making instance %d beside %d others", number + 1, number);
    all.push_back(std::make_unique<Subject>(module));
  }
  // One that processes may have moved its own, such as meters: compared while all are off.
  const std::vector<float> before = all.back()->parameters();
  for (int index = 0; index < all.front()->record().numParams; ++index) {
    trial.step("setting parameter %d of one instance of %d", index, kInstances);
    all.front()->setParameter(index, before[static_cast<std::size_t>(index)] < 0.5F ? 1.0F : 0.0F);
  }
  const std::vector<float> after = all.back()->parameters();
  for (std::size_t index = 0; index < before.size(); ++index) {
    if (!isSameValue(before[index], after[index]))
      trial.fail("setting parameter %zu of one instance moves another's from %g to %g", index,
                 before[index], after[index]);
  }
  for (auto& subject : all) {
    trial.step("switching one of %d instances on", kInstances);
    subject->start(kRate, kBlock);
  }
  while (!all.empty()) {
    const int gone = trial.randomInt(0, static_cast<int>(all.size()) - 1);
    trial.step("closing instance %d of %zu", gone + 1, all.size());
    all.erase(all.begin() + gone);
    for (auto& subject : all) {
      trial.step("processing while %zu instances of %d are left", all.size(), kInstances);
      playBlock(trial, *subject);
    }
  }
}

// Some hosts never switch off.
void isClosedWhileOn(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  trial.step("switching it on");
  subject.start(kRate, kBlock);
  playBlock(trial, subject);
  trial.step("closing it while it is on");
  subject.neverStop();
}

// Not opened, and closed by nobody.
AEffect* makeOnly(Trial& trial, const PluginModule& module, HostCallback& callback) {
  const HostCallback::Scope scope(&callback);
  trial.step("making the effect");
  AEffect* effect = module.entryPoint()(&HostCallback::entry);
  checkEffectRecord(effect, module.path().filename().string());
  effect->resvd1 = reinterpret_cast<VstIntPtr>(&callback);
  return effect;
}

// Some hosts neither open nor switch on.
void bearsNeverBeingOpened(Trial& trial) {
  PluginModule module(trial.plugin());
  HostCallback callback;
  AEffect* effect = makeOnly(trial, module, callback);
  for (VstInt32 index = 0; index < effect->numParams; ++index) {
    trial.step("getting and setting parameter %d of an effect that was never opened", index);
    effect->setParameter(effect, index, effect->getParameter(effect, index));
  }
  trial.step("closing an effect that was never opened");
  effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
}

void bearsUnloadingWhileAlive(Trial& trial) {
  HostCallback outlives;
  {
    PluginModule module(trial.plugin());
    makeOnly(trial, module, outlives);
    trial.step("unloading it with an effect alive");
  }
  trial.step("loading it again after it was unloaded with an effect alive");
  PluginModule module(trial.plugin());
  const Subject subject(module);
}

[[noreturn]] void bearsItsHostsEnd(Trial& trial) {
  auto* module = new PluginModule(trial.plugin());  // neither is ended, as it is with such a host
  auto* subject = new Subject(*module);
  trial.step("processing");
  subject->start(kRate, kBlock);
  playBlock(trial, *subject);
  trial.step("ending the host with the effect alive and switched on");
  trial.passSoFar();
  std::exit(0);
}

constexpr std::array kChecks{
    Check{"several instances live side by side", 4, 60, livesBesideOthers},
    Check{"it bears being closed while it is on", 5, 60, isClosedWhileOn},
    Check{"it bears never being opened", 6, 60, bearsNeverBeingOpened},
    Check{"it bears the end of its host", 6, 60, bearsItsHostsEnd},
    Check{"it bears being unloaded with an effect alive", 8, 60, bearsUnloadingWhileAlive},
};

}  // namespace

std::span<const Check> lifeChecks() {
  return kChecks;
}
