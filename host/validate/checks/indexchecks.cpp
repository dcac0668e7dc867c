// Checks with programs, parameters and pins that an effect does not have.
#include <array>
#include <climits>
#include <cmath>
#include <vector>

#include "host/validate/check.h"
#include "host/validate/means/guardedtext.h"
#include "host/validate/subject.h"

namespace {

constexpr VstIntPtr kAnyCategory = -1;

// Beside an effect that has `count` of them.
std::array<VstInt32, 7> outsideOf(VstInt32 count) {
  return {-1, -4, count, count + 1, count + 1000, INT_MAX, INT_MIN};
}

void programsOutside(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  const VstInt32 count = subject.record().numPrograms;
  std::array<char, kVstMaxProgNameLen> name{"A name"};
  for (const VstInt32 program : outsideOf(count)) {
    trial.step("selecting program %d of %d", program, count);
    subject.dispatch(effSetProgram, 0, program);
    const VstIntPtr selected = subject.dispatch(effGetProgram);
    if (count > 0 && (selected < 0 || selected >= count))
      trial.fail("program %zd is selected after program %d of %d was asked for", selected, program,
                 count);
    trial.step("asking for names after selecting program %d of %d", program, count);
    askText(subject, effGetProgramName);
    subject.dispatch(effSetProgramName, 0, 0, name.data());
    askText(subject, effGetProgramNameIndexed, program, kAnyCategory);
  }
  for (VstInt32 index = 0; index < subject.record().numParams; ++index) {
    trial.step("getting parameter %d after selecting programs that there are not", index);
    subject.parameter(index);
  }
}

void parametersOutside(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  const VstInt32 count = subject.record().numParams;
  if (subject.record().getParameter == nullptr || subject.record().setParameter == nullptr)
    trial.leaveOut("it has no way to parameters");
  const std::vector<float> before = subject.parameters();
  for (const VstInt32 index : outsideOf(count)) {
    trial.step("getting parameter %d of %d", index, count);
    subject.parameter(index);
    trial.step("setting parameter %d of %d", index, count);
    subject.setParameter(index, trial.randomUnit());
    for (const VstInt32 opcode : {effGetParamName, effGetParamLabel, effGetParamDisplay}) {
      trial.step("asking for the texts of parameter %d of %d (opcode %d)", index, count, opcode);
      askText(subject, opcode, index);
    }
    trial.step("asking about parameter %d of %d", index, count);
    VstParameterProperties properties{};
    subject.dispatch(effGetParameterProperties, index, 0, &properties);
    subject.dispatch(effCanBeAutomated, index);
    subject.dispatch(effString2Parameter, index);
  }
  for (VstInt32 index = 0; index < count; ++index) {
    const float now = subject.parameter(index);
    if (!isSameValue(now, before[static_cast<std::size_t>(index)]))
      trial.fail("parameter %d went from %g to %g while parameters were set that there are not",
                 index, before[static_cast<std::size_t>(index)], now);
  }
}

void pinsOutside(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  const auto ask = [&](VstInt32 opcode, VstInt32 count, const char* what) {
    for (const VstInt32 pin : outsideOf(count)) {
      trial.step("asking for %s %d of %d", what, pin, count);
      if (askText(subject, opcode, pin).written > sizeof(VstPinProperties))
        trial.fail("writes more than a record about %s %d of %d", what, pin, count);
    }
  };
  ask(effGetInputProperties, subject.record().numInputs, "input");
  ask(effGetOutputProperties, subject.record().numOutputs, "output");
}

constexpr std::array kChecks{
    Check{"programs that it does not have are borne", 9, 30, programsOutside},
    Check{"parameters that it does not have are borne", 9, 30, parametersOutside},
    Check{"pins that it does not have are borne", 9, 30, pinsOutside},
};

}  // namespace

std::span<const Check> indexChecks() {
  return kChecks;
}
