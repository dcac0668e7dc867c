// Everything that an effect says of itself.
#include "host/state/effectfacts.h"

#include <array>
#include <cctype>
#include <cstdint>

#include "host/state/effectadapter.h"

namespace {

constexpr std::array kAsked = {"sendVstEvents",
                               "sendVstMidiEvent",
                               "receiveVstEvents",
                               "receiveVstMidiEvent",
                               "receiveVstTimeInfo",
                               "offline",
                               "midiProgramNames",
                               "bypass",
                               "plugAsChannelInsert",
                               "plugAsSend",
                               "mixDryWet",
                               "noRealTime",
                               "multipass",
                               "metapass",
                               "1in1out",
                               "1in2out",
                               "2in1out",
                               "2in2out",
                               "2in4out",
                               "4in2out",
                               "4in4out"};

std::optional<PinFacts> pinOf(Effect& effect, VstInt32 opcode, int index) {
  VstPinProperties pin{};
  if (effect.dispatch(opcode, index, 0, &pin) == 0) return std::nullopt;
  pin.label[kVstMaxLabelLen - 1] = 0;
  pin.shortLabel[kVstMaxShortLabelLen - 1] = 0;
  PinFacts facts{pin.label, pin.shortLabel, (pin.flags & kVstPinIsActive) != 0,
                 (pin.flags & kVstPinIsStereo) != 0, std::nullopt};
  if ((pin.flags & kVstPinUseSpeaker) != 0) facts.arrangement = pin.arrangementType;
  return facts;
}

std::optional<ArrangementFacts> arrangementOf(Effect& effect) {
  VstSpeakerArrangement* in = nullptr;
  VstSpeakerArrangement* out = nullptr;
  const VstIntPtr answer =
      effect.dispatch(effGetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out);
  if (answer == 0 || in == nullptr || out == nullptr) return std::nullopt;
  return ArrangementFacts{in->numChannels, in->type, out->numChannels, out->type};
}

std::optional<EffectFacts::Size> editorSize(Effect& effect) {
  ERect* rectangle = nullptr;
  if (effect.dispatch(effEditGetRect, 0, 0, &rectangle) == 0 || rectangle == nullptr)
    return std::nullopt;
  return EffectFacts::Size{rectangle->right - rectangle->left, rectangle->bottom - rectangle->top};
}

void askCapabilities(Effect& effect, EffectFacts& facts) {
  for (const char* asked : kAsked) {
    std::string text = asked;
    const VstIntPtr answer = effect.dispatch(effCanDo, 0, 0, text.data());
    if (answer != 0) (answer > 0 ? facts.can : facts.cannot).emplace_back(asked);
  }
}

}  // namespace

EffectFacts factsOf(Effect& effect) {
  const AEffect& record = effect.record();
  EffectFacts facts;
  facts.file = effect.path().string();
  facts.name = effect.text(effGetEffectName);
  facts.vendor = effect.text(effGetVendorString);
  facts.product = effect.text(effGetProductString);
  facts.vendorVersion = effect.dispatch(effGetVendorVersion);
  facts.version = record.version;
  facts.vstVersion = effect.dispatch(effGetVstVersion);
  facts.uniqueId = record.uniqueID;
  facts.identity = static_cast<VstInt32>(effect.dispatch(effIdentify));
  facts.category = effect.dispatch(effGetPlugCategory);
  facts.flags = record.flags;
  facts.programs = record.numPrograms;
  facts.currentProgram = static_cast<int>(effect.dispatch(effGetProgram));
  facts.programName = effect.text(effGetProgramName);
  facts.parameters = record.numParams;
  for (int pin = 0; pin < record.numInputs; ++pin)
    facts.inputs.push_back(pinOf(effect, effGetInputProperties, pin));
  for (int pin = 0; pin < record.numOutputs; ++pin)
    facts.outputs.push_back(pinOf(effect, effGetOutputProperties, pin));
  facts.arrangement = arrangementOf(effect);
  facts.latency = record.initialDelay;
  facts.tail = effect.dispatch(effGetTailSize);
  facts.sampleRates = adapterFor(effect)->sampleRates();
  if (effect.hasChunk()) facts.stateBytes = effect.chunk().size();
  facts.hasEditor = (record.flags & effFlagsHasEditor) != 0;
  if (facts.hasEditor) facts.editorSize = editorSize(effect);
  facts.midiInputs = effect.dispatch(effGetNumMidiInputChannels);
  facts.midiOutputs = effect.dispatch(effGetNumMidiOutputChannels);
  askCapabilities(effect, facts);
  return facts;
}

std::optional<std::string> categoryName(VstIntPtr category) {
  static constexpr std::array<const char*, 12> kNames = {
      "unknown", "effect",   "synth",       "analysis",        "mastering", "spacializer",
      "room fx", "surround", "restoration", "offline process", "shell",     "generator"};
  if (category < 0 || category >= static_cast<VstIntPtr>(kNames.size())) return std::nullopt;
  return kNames[static_cast<std::size_t>(category)];
}

std::string idLetters(VstInt32 id) {
  std::string letters;
  for (int shift = 24; shift >= 0; shift -= 8) {
    const auto letter = static_cast<unsigned char>(static_cast<std::uint32_t>(id) >> shift);
    letters += std::isprint(letter) != 0 ? static_cast<char>(letter) : '.';
  }
  return letters;
}
