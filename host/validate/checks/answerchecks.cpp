// Checks of an effect's answers: its record, its programs and pins, and what it does not know.
#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <string>

#include "host/validate/check.h"
#include "host/validate/means/guardedtext.h"
#include "host/validate/subject.h"

namespace {

constexpr VstIntPtr kAnyCategory = -1;

void recordFitsTogether(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  const AEffect& record = subject.record();
  if (subject.has(effFlagsCanReplacing) && record.processReplacing == nullptr)
    trial.fail("its flags name processReplacing, which its record does not have");
  if (subject.has(effFlagsCanDoubleReplacing) && record.processDoubleReplacing == nullptr)
    trial.fail("its flags name double precision, which its record does not have");
  if (record.uniqueID == 0) trial.fail("its identifier is 0: hosts cannot tell it from others");
  trial.step("asking for its version of the interface, category, tail and current program");
  const VstIntPtr version = subject.dispatch(effGetVstVersion);
  if (version < 0 || version > kVstVersion)
    trial.fail("its version of the interface is %zd", version);
  const VstIntPtr category = subject.dispatch(effGetPlugCategory);
  if (category < kPlugCategUnknown || category > kPlugCategGenerator)
    trial.fail("its category is %zd, which there is not", category);
  const VstIntPtr tail = subject.dispatch(effGetTailSize);
  if (tail < 0) trial.fail("its tail is %zd frames long", tail);
  const VstIntPtr program = subject.dispatch(effGetProgram);
  if (record.numPrograms > 0 && (program < 0 || program >= record.numPrograms))
    trial.fail("program %zd is selected, of %d", program, record.numPrograms);
}

void selectProgram(Subject& subject, VstInt32 program) {
  subject.dispatch(effBeginSetProgram);
  subject.dispatch(effSetProgram, 0, program);
  subject.dispatch(effEndSetProgram);
}

void programsAreSelected(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  const int count = std::min(subject.record().numPrograms, trial.rounds(200));
  if (count == 0) trial.leaveOut("it has no programs");
  for (VstInt32 program = count - 1; program >= 0; --program) {
    trial.step("selecting program %d of %d", program, count);
    selectProgram(subject, program);
    const VstIntPtr selected = subject.dispatch(effGetProgram);
    if (selected != program)
      trial.fail("program %zd is selected after program %d was asked for", selected, program);
    const GuardedText own = askText(subject, effGetProgramName);
    const GuardedText listed = askText(subject, effGetProgramNameIndexed, program, kAnyCategory);
    if (listed.result != 0 && own.text != listed.text)
      trial.fail("program %d is listed as %s and named %s when it is selected", program,
                 shown(listed.text).c_str(), shown(own.text).c_str());
  }
}

// Not every effect lets its programs be renamed.
void aProgramIsRenamed(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  if (subject.record().numPrograms == 0) trial.leaveOut("it has no programs");
  const std::string before = askText(subject, effGetProgramName).text;
  std::array<char, kVstMaxProgNameLen> name{"A name of 23 characters"};
  trial.step("naming the program");
  subject.dispatch(effSetProgramName, 0, 0, name.data());
  const GuardedText after = askText(subject, effGetProgramName);
  const bool isTaken = std::string(name.data()).starts_with(after.text) && !after.text.empty();
  if (!isTaken && after.text != before)
    trial.fail("named %s, the program is called %s", name.data(), shown(after.text).c_str());
  if (!isTaken) trial.note("its programs keep their names");
}

// Beyond the label, the flags, the arrangement and the short label, some hosts have no memory.
constexpr std::size_t kPinBytesUsed = offsetof(VstPinProperties, future);
constexpr std::size_t kPinBytes = sizeof(VstPinProperties);

void lookAtPins(Trial& trial, Subject& subject, VstInt32 opcode, VstInt32 count, const char* what) {
  constexpr int kExact = 10;
  const std::size_t most = trial.strictness() >= kExact ? kPinBytesUsed : kPinBytes;
  for (VstInt32 pin = 0; pin < count; ++pin) {
    trial.step("asking for %s %d", what, pin);
    const GuardedText asked = askText(subject, opcode, pin);
    if (asked.wroteBefore || asked.written > most)
      trial.fail("writes %zu bytes about %s %d, where hosts give %zu", asked.written, what, pin,
                 most);
    if (asked.result != 0 && asked.text.size() >= kVstMaxLabelLen)
      trial.fail("the label of %s %d has no zero at its end: %s", what, pin,
                 shown(asked.text).c_str());
  }
}

void pinsAreDescribed(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  lookAtPins(trial, subject, effGetInputProperties, subject.record().numInputs, "input");
  lookAtPins(trial, subject, effGetOutputProperties, subject.record().numOutputs, "output");
}

void parametersAreDescribed(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  for (VstInt32 index = 0; index < subject.record().numParams; ++index) {
    trial.step("asking for the properties of parameter %d", index);
    VstParameterProperties properties[2] = {};  // the second one is nobody's
    const VstIntPtr result = subject.dispatch(effGetParameterProperties, index, 0, properties);
    const auto* guard = reinterpret_cast<const char*>(&properties[1]);
    if (std::any_of(guard, guard + sizeof properties[1], [](char c) { return c != 0; }))
      trial.fail("writes more than a record about parameter %d", index);
    if (result != 0 && strnlen(properties[0].label, kVstMaxLabelLen) == kVstMaxLabelLen)
      trial.fail("the label in the properties of parameter %d has no zero at its end", index);
    trial.step("asking whether parameter %d can be automated, and whether it takes a text", index);
    subject.dispatch(effCanBeAutomated, index);
    subject.dispatch(effString2Parameter, index);
  }
}

// Hosts ask with opcodes of their own, and of interfaces to come.
void unknownRequestsGetNothing(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  constexpr VstInt32 kFirstUnknown = effGetNumMidiOutputChannels + 1;
  constexpr std::array kSeen{-1, kFirstUnknown, 100289, 100303, 100304, INT_MAX, INT_MIN};
  std::array<char, 1024> text{};
  for (int round = 0; round < trial.rounds(500); ++round) {
    const auto seen = static_cast<std::size_t>(round);
    const VstInt32 opcode =
        seen < kSeen.size() ? kSeen[seen] : trial.randomInt(kFirstUnknown, INT_MAX);
    const int index = trial.randomInt(-1, 2);
    void* const ptr = trial.randomInt(0, 1) == 0 ? nullptr : text.data();
    trial.step("asking with opcode %d, index %d and ptr %s", opcode, index,
               ptr == nullptr ? "null" : "a text");
    const VstIntPtr result = subject.dispatch(opcode, index, trial.randomInt(-1, 2), ptr);
    if (result != 0) trial.fail("answers %zd to opcode %d, which there is not", result, opcode);
  }
}

void unknownAbilitiesAreNotClaimed(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  constexpr std::size_t kLong = 4096;
  for (const std::string& ability :
       {std::string("flyToTheMoon"), std::string(), std::string("bypas"),
        std::string("receiveVstEventsX"), std::string("%s%n"), std::string(kLong, 'x')}) {
    trial.step("asking whether it can do %s", shown(ability).c_str());
    std::string asked = ability;
    const VstIntPtr result = subject.dispatch(effCanDo, 0, 0, asked.data());
    if (result > 0) trial.fail("says that it can do %s (%zd)", shown(ability).c_str(), result);
  }
}

constexpr std::array kChecks{
    Check{"its record fits together", 2, 30, recordFitsTogether},
    Check{"programs are selected", 5, 30, programsAreSelected},
    Check{"pins are described within their records", 4, 30, pinsAreDescribed},
    Check{"parameters are described within their records", 5, 30, parametersAreDescribed},
    Check{"abilities that nobody knows are not claimed", 5, 30, unknownAbilitiesAreNotClaimed},
    Check{"a program is renamed, or keeps its name", 6, 30, aProgramIsRenamed},
    Check{"requests that nobody knows are answered with 0", 6, 30, unknownRequestsGetNothing},
};

}  // namespace

std::span<const Check> answerChecks() {
  return kChecks;
}
