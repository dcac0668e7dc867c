// Checks of what an effect says of itself: the texts of effect, programs and parameters.
#include <algorithm>
#include <array>
#include <map>

#include "host/validate/check.h"
#include "host/validate/means/guardedtext.h"
#include "host/validate/subject.h"

namespace {

constexpr int kCareful = 10;  // strictness
constexpr VstIntPtr kAnyCategory = -1;

// Sizes in bytes with the zero. An effect's own names are published as arrays of that size; for
// programs and parameters it is the number of characters.
struct TextKind {
  VstInt32 opcode;
  const char* what;
  std::size_t published;
  std::size_t careful;  // what hosts give that keep to the published size and some slack
  std::size_t usual;    // what they give mostly
};

constexpr std::size_t kNameSize = kVstMaxProgNameLen + 1;
constexpr std::size_t kParameterSize = kVstMaxParamStrLen + 1;
constexpr TextKind kOwnNames[] = {
    {effGetEffectName, "its name", kVstMaxEffectNameLen, kVstMaxEffectNameLen, 64},
    {effGetVendorString, "its vendor", kVstMaxVendorStrLen, kVstMaxVendorStrLen, 64},
    {effGetProductString, "its product", kVstMaxProductStrLen, kVstMaxProductStrLen, 64},
};
constexpr TextKind kParameterTexts[] = {
    {effGetParamName, "name", kParameterSize, 16, 64},
    {effGetParamLabel, "label", kParameterSize, 16, 64},
    {effGetParamDisplay, "display", kParameterSize, 16, 64},
};
constexpr TextKind kProgramName{effGetProgramName, "name", kNameSize, kNameSize, 64};
constexpr TextKind kIndexedName{effGetProgramNameIndexed, "name", kNameSize, kNameSize, 64};

using LookAt = void (*)(Trial&, const TextKind&, const GuardedText&, const std::string& what);

void lookAtOwnNames(Trial& trial, Subject& subject, LookAt look) {
  for (const TextKind& kind : kOwnNames) {
    trial.step("asking for %s", kind.what);
    look(trial, kind, askText(subject, kind.opcode), kind.what);
  }
}

void lookAtPrograms(Trial& trial, Subject& subject, LookAt look) {
  const int count = std::min(subject.record().numPrograms, trial.rounds(200));
  for (VstInt32 program = 0; program < count; ++program) {
    trial.step("asking for the name of program %d", program);
    const std::string what = "the name of program " + std::to_string(program);
    look(trial, kIndexedName, askText(subject, effGetProgramNameIndexed, program, kAnyCategory),
         what);
  }
  trial.step("asking for the current program's name");
  look(trial, kProgramName, askText(subject, effGetProgramName), "the current program's name");
}

void lookAtParameter(Trial& trial, Subject& subject, VstInt32 index, LookAt look) {
  for (const TextKind& kind : kParameterTexts) {
    trial.step("asking for the %s of parameter %d at %g", kind.what, index,
               subject.parameter(index));
    look(trial, kind, askText(subject, kind.opcode, index),
         "the " + std::string(kind.what) + " of parameter " + std::to_string(index));
  }
}

void lookAtParameters(Trial& trial, Subject& subject, LookAt look) {
  for (VstInt32 index = 0; index < subject.record().numParams; ++index) {
    const float before = subject.parameter(index);
    lookAtParameter(trial, subject, index, look);
    for (const float value : {0.0F, 0.5F, 1.0F, trial.randomUnit()}) {
      trial.step("setting parameter %d to %g", index, value);
      subject.setParameter(index, value);
      lookAtParameter(trial, subject, index, look);
    }
    subject.setParameter(index, before);
  }
}

void keepsToItsSize(Trial& trial, const TextKind& kind, const GuardedText& asked,
                    const std::string& what) {
  const std::size_t most = trial.strictness() >= kCareful ? kind.careful : kind.usual;
  if (asked.wroteBefore) trial.fail("%s: writes in front of the host's buffer", what.c_str());
  if (asked.written > most)
    trial.fail("%s writes %zu bytes where hosts give %zu: %s", what.c_str(), asked.written, most,
               shown(asked.text).c_str());
  if (!asked.isEnded)
    trial.fail("%s has no zero at its end: %s", what.c_str(), shown(asked.text).c_str());
  if (asked.written > kind.published)
    trial.note("%s writes %zu bytes; %zu are published: %s", what.c_str(), asked.written,
               kind.published, shown(asked.text).c_str());
}

void isPrintable(Trial& trial, const TextKind&, const GuardedText& asked, const std::string& what) {
  if (!isUtf8(asked.text))
    trial.fail("%s is no UTF-8: %s", what.c_str(), shown(asked.text).c_str());
  if (hasControls(asked.text))
    trial.fail("%s has control characters: %s", what.c_str(), shown(asked.text).c_str());
}

void isTheSameAgain(Trial& trial, const TextKind&, const GuardedText& asked,
                    const std::string& what) {
  if (asked.written > 0 && asked.text != asked.again)
    trial.fail("%s is %s and %s when asked for again", what.c_str(), shown(asked.text).c_str(),
               shown(asked.again).c_str());
}

void ownNamesKeepToTheirSizes(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  lookAtOwnNames(trial, subject, keepsToItsSize);
}

void programNamesKeepToTheirSize(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  if (subject.record().numPrograms == 0) trial.leaveOut("it has no programs");
  lookAtPrograms(trial, subject, keepsToItsSize);
}

void parameterTextsKeepToTheirSize(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  if (subject.record().numParams == 0) trial.leaveOut("it has no parameters");
  lookAtParameters(trial, subject, keepsToItsSize);
}

void lookAtAll(Trial& trial, Subject& subject, LookAt look) {
  lookAtOwnNames(trial, subject, look);
  lookAtPrograms(trial, subject, look);
  lookAtParameters(trial, subject, look);
}

void textsArePrintable(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  lookAtAll(trial, subject, isPrintable);
}

void textsAreTheSameAgain(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  lookAtAll(trial, subject, isTheSameAgain);
}

// Hosts keep automation and presets by them.
void parameterNamesAreKeys(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module);
  if (subject.record().numParams == 0) trial.leaveOut("it has no parameters");
  std::map<std::string, VstInt32> known;
  for (VstInt32 index = 0; index < subject.record().numParams; ++index) {
    trial.step("asking for the name of parameter %d", index);
    const std::string name = askText(subject, effGetParamName, index).text;
    if (name.empty()) trial.fail("parameter %d has no name", index);
    const auto [place, isNew] = known.try_emplace(name, index);
    if (!isNew)
      trial.fail("parameters %d and %d have the same name, %s", place->second, index,
                 shown(name).c_str());
  }
}

constexpr std::array kChecks{
    Check{"names of effect, vendor and product keep to their sizes", 2, 10,
          ownNamesKeepToTheirSizes},
    Check{"program names keep to their size", 2, 30, programNamesKeepToTheirSize},
    Check{"parameter texts keep to their size", 2, 60, parameterTextsKeepToTheirSize},
    Check{"texts are the same when asked for again", 4, 60, textsAreTheSameAgain},
    Check{"texts can be printed", 6, 60, textsArePrintable},
    Check{"parameters are told apart by their names", 10, 30, parameterNamesAreKeys},
};

}  // namespace

std::span<const Check> textChecks() {
  return kChecks;
}
