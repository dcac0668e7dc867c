// Effects with wrong answers: about themselves, their programs and pins, and what they do not know.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "tests/validate/plugins/soundeffect.h"

namespace {

struct Request {
  VstInt32 opcode;
  VstInt32 index;
  VstIntPtr value;
  void* ptr;
};

class DoubleWithoutEntry : public SoundEffect {
 public:
  explicit DoubleWithoutEntry(audioMasterCallback callback) : SoundEffect(callback) {
    record.processDoubleReplacing = nullptr;
  }
};
EFFECT_IN_FILE(doublewithoutentry, DoubleWithoutEntry);

// Gives an answer of its own, where it has one.
#define ANSWERING(name, Class)                                                      \
  class Class : public SoundEffect {                                                \
   public:                                                                          \
    using SoundEffect::SoundEffect;                                                 \
                                                                                    \
   protected:                                                                       \
    VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, \
                       float opt) override {                                        \
      const std::optional<VstIntPtr> own = answer({opcode, index, value, ptr});     \
      return own ? *own : SoundEffect::dispatch(opcode, index, value, ptr, opt);    \
    }                                                                               \
                                                                                    \
   private:                                                                         \
    std::optional<VstIntPtr> answer(const Request& asked);                          \
  };                                                                                \
  EFFECT_IN_FILE(name, Class);                                                      \
  std::optional<VstIntPtr> Class::answer([[maybe_unused]] const Request& asked)

ANSWERING(categoryunknown, CategoryUnknown) {
  return asked.opcode == effGetPlugCategory ? std::optional<VstIntPtr>(99) : std::nullopt;
}

ANSWERING(keepsitsprogram, KeepsItsProgram) {
  return asked.opcode == effSetProgram ? std::optional<VstIntPtr>(0) : std::nullopt;
}

ANSWERING(listsothernames, ListsOtherNames) {
  if (asked.opcode != effGetProgramNameIndexed) return std::nullopt;
  std::snprintf(static_cast<char*>(asked.ptr), kVstMaxProgNameLen, "Other %d", asked.index);
  return 1;
}

ANSWERING(renamesotherwise, RenamesOtherwise) {
  if (asked.opcode != effSetProgramName) return std::nullopt;
  std::snprintf(programs[current].name, sizeof programs[current].name, "Something else");
  return 0;
}

ANSWERING(longpin, LongPin) {
  if (asked.opcode != effGetOutputProperties) return std::nullopt;
  std::memset(asked.ptr, 1, sizeof(VstPinProperties));
  return 1;
}

ANSWERING(pinwithoutend, PinWithoutEnd) {
  if (asked.opcode != effGetInputProperties) return std::nullopt;
  std::memset(asked.ptr, 'x', kVstMaxLabelLen);
  return 1;
}

ANSWERING(longproperties, LongProperties) {
  if (asked.opcode != effGetParameterProperties) return std::nullopt;
  std::memset(asked.ptr, 1, sizeof(VstParameterProperties) + 1);
  return 1;
}

ANSWERING(answersunknown, AnswersUnknown) {
  const bool isUnknown = asked.opcode > effGetNumMidiOutputChannels;
  return isUnknown ? std::optional<VstIntPtr>(1) : std::nullopt;
}

ANSWERING(claimseverything, ClaimsEverything) {
  return asked.opcode == effCanDo ? std::optional<VstIntPtr>(1) : std::nullopt;
}

ANSWERING(takesanyprogram, TakesAnyProgram) {
  static VstIntPtr selected = 0;
  if (asked.opcode == effSetProgram) selected = asked.value;
  return asked.opcode == effGetProgram ? std::optional<VstIntPtr>(selected) : std::nullopt;
}

ANSWERING(readsanypin, ReadsAnyPin) {
  const bool isOutside = asked.index < 0 || asked.index > 1;
  if (asked.opcode == effGetInputProperties && isOutside) std::abort();
  return std::nullopt;
}

class SetsAnyParameter : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    SoundEffect::setParameter(index < 0 ? 0 : index, value);
  }
};
EFFECT_IN_FILE(setsanyparameter, SetsAnyParameter);

}  // namespace
