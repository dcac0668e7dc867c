// Effects whose texts are too long, have no end, change or cannot be printed.
#include <cstring>

#include "tests/validate/plugins/soundeffect.h"

namespace {

// Gives one text for an opcode, as many bytes as it is told.
template <VstInt32 kOpcode>
class GivesText : public SoundEffect {
 public:
  GivesText(audioMasterCallback callback, const char* itsText, std::size_t itsBytes)
      : SoundEffect(callback), text(itsText), bytes(itsBytes) {}

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode != kOpcode) return SoundEffect::dispatch(opcode, index, value, ptr, opt);
    std::memcpy(ptr, text, bytes);
    return 1;
  }

 private:
  const char* text;
  std::size_t bytes;
};

constexpr char kLongText[] =
    "This text goes on and on without much of a sense, to the end of the host's memory";

class LongName : public GivesText<effGetEffectName> {
 public:
  explicit LongName(audioMasterCallback callback)
      : GivesText(callback, kLongText, sizeof kLongText) {}
};
EFFECT_IN_FILE(longname, LongName);

class LongProgramName : public GivesText<effGetProgramNameIndexed> {
 public:
  explicit LongProgramName(audioMasterCallback callback)
      : GivesText(callback, kLongText, sizeof kLongText) {}
};
EFFECT_IN_FILE(longprogramname, LongProgramName);

class LongDisplay : public GivesText<effGetParamDisplay> {
 public:
  explicit LongDisplay(audioMasterCallback callback)
      : GivesText(callback, "0.50000000000000000", 20) {}
};
EFFECT_IN_FILE(longdisplay, LongDisplay);

// Longer than any room that a host has for it.
class EndlessDisplay : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    constexpr std::size_t kBytes = 8200;  // so few that they spoil a heap rather than end it
    if (opcode != effGetParamDisplay) return SoundEffect::dispatch(opcode, index, value, ptr, opt);
    std::memset(ptr, 'x', kBytes);
    return 1;
  }
};
EFFECT_IN_FILE(endlessdisplay, EndlessDisplay);
EFFECT_IN_FILE(endlessdisplayinhosts, EndlessDisplay);

class LabelWithoutEnd : public GivesText<effGetParamLabel> {
 public:
  explicit LabelWithoutEnd(audioMasterCallback callback) : GivesText(callback, "per cent", 8) {}
};
EFFECT_IN_FILE(labelwithoutend, LabelWithoutEnd);

class LatinName : public GivesText<effGetParamName> {
 public:
  explicit LatinName(audioMasterCallback callback)
      : GivesText(callback,
                  "Gr\xf6\xdf"
                  "e",
                  6) {}
};
EFFECT_IN_FILE(latinname, LatinName);

class NameOfTwoLines : public GivesText<effGetEffectName> {
 public:
  explicit NameOfTwoLines(audioMasterCallback callback) : GivesText(callback, "So\nund", 7) {}
};
EFFECT_IN_FILE(nameoftwolines, NameOfTwoLines);

class SameNames : public GivesText<effGetParamName> {
 public:
  explicit SameNames(audioMasterCallback callback) : GivesText(callback, "Gain", 5) {}
};
EFFECT_IN_FILE(samenames, SameNames);

class NamesNothing : public GivesText<effGetParamName> {
 public:
  explicit NamesNothing(audioMasterCallback callback) : GivesText(callback, "", 1) {}
};
EFFECT_IN_FILE(namesnothing, NamesNothing);

class WritesBeforeTheName : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effGetVendorString) static_cast<char*>(ptr)[-1] = '"';
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
};
EFFECT_IN_FILE(writesbeforethename, WritesBeforeTheName);

class ChangesItsName : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    const VstIntPtr result = SoundEffect::dispatch(opcode, index, value, ptr, opt);
    if (opcode == effGetParamName) *static_cast<char*>(ptr) = static_cast<char>('A' + ++asked % 26);
    return result;
  }

 private:
  int asked = 0;
};
EFFECT_IN_FILE(changesitsname, ChangesItsName);

}  // namespace
