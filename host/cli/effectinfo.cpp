// Everything that an effect says of itself.
#include "host/cli/effectinfo.h"

#include <array>
#include <cctype>

#include "host/base/text.h"
#include "host/state/effectadapter.h"

namespace {

std::string row(const char* title, const std::string& text) {
  return formatted("%-20s ", title) + text + "\n";
}

std::string idText(VstInt32 id) {
  std::string letters;
  for (int shift = 24; shift >= 0; shift -= 8) {
    const auto letter = static_cast<unsigned char>(static_cast<std::uint32_t>(id) >> shift);
    letters += std::isprint(letter) != 0 ? static_cast<char>(letter) : '.';
  }
  return formatted("'%s' (0x%08X)", letters.c_str(), static_cast<unsigned>(id));
}

std::string categoryText(VstIntPtr category) {
  static constexpr std::array<const char*, 12> kNames = {
      "unknown", "effect",   "synth",       "analysis",        "mastering", "spacializer",
      "room fx", "surround", "restoration", "offline process", "shell",     "generator"};
  const bool known = category >= 0 && category < static_cast<VstIntPtr>(kNames.size());
  if (!known) return std::to_string(category);
  return formatted("%d (%s)", static_cast<int>(category),
                   kNames[static_cast<std::size_t>(category)]);
}

std::string flagsText(VstInt32 flags) {
  struct Flag {
    VstInt32 bit;
    const char* name;
  };
  static constexpr std::array<Flag, 6> kFlags = {
      {{effFlagsHasEditor, "has editor"},
       {effFlagsCanReplacing, "can replacing"},
       {effFlagsProgramChunks, "program chunks"},
       {effFlagsIsSynth, "is synth"},
       {effFlagsNoSoundInStop, "no sound in stop"},
       {effFlagsCanDoubleReplacing, "can double replacing"}}};
  std::string text = formatted("0x%X", static_cast<unsigned>(flags));
  for (const Flag& flag : kFlags) {
    if ((flags & flag.bit) != 0) text += std::string(", ") + flag.name;
  }
  return text;
}

std::string pinText(Effect& effect, VstInt32 opcode, int index) {
  VstPinProperties pin{};
  if (effect.dispatch(opcode, index, 0, &pin) == 0) return "no answer";
  pin.label[kVstMaxLabelLen - 1] = 0;
  pin.shortLabel[kVstMaxShortLabelLen - 1] = 0;
  std::string text = formatted("\"%s\"", pin.label);
  if (pin.shortLabel[0] != 0) text += formatted(" (\"%s\")", pin.shortLabel);
  if ((pin.flags & kVstPinIsActive) != 0) text += ", active";
  if ((pin.flags & kVstPinIsStereo) != 0) text += ", stereo";
  if ((pin.flags & kVstPinUseSpeaker) != 0)
    text += ", arrangement " + std::to_string(pin.arrangementType);
  return text;
}

std::string arrangementText(Effect& effect) {
  VstSpeakerArrangement* in = nullptr;
  VstSpeakerArrangement* out = nullptr;
  const VstIntPtr answer =
      effect.dispatch(effGetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out);
  if (answer == 0 || in == nullptr || out == nullptr) return "no answer";
  return formatted("%d channels in (type %d), %d out (type %d)", in->numChannels, in->type,
                   out->numChannels, out->type);
}

std::string capabilities(Effect& effect) {
  static constexpr std::array<const char*, 21> kAsked = {"sendVstEvents",
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
  std::string yes;
  std::string no;
  for (const char* asked : kAsked) {
    std::string text = asked;
    const VstIntPtr answer = effect.dispatch(effCanDo, 0, 0, text.data());
    std::string& list = answer > 0 ? yes : no;
    if (answer == 0) continue;
    list += (list.empty() ? "" : ", ") + text;
  }
  std::string text = row("can do", yes.empty() ? "nothing that was asked" : yes);
  if (!no.empty()) text += row("cannot do", no);
  return text;
}

std::string programRow(Effect& effect) {
  const std::string name = effect.text(effGetProgramName);
  return formatted("%d (current %d, \"%s\")", effect.record().numPrograms,
                   static_cast<int>(effect.dispatch(effGetProgram)), name.c_str());
}

std::string editorText(Effect& effect) {
  if ((effect.record().flags & effFlagsHasEditor) == 0) return "none";
  ERect* rectangle = nullptr;
  if (effect.dispatch(effEditGetRect, 0, 0, &rectangle) == 0 || rectangle == nullptr)
    return "yes, size not known yet";
  return formatted("%d x %d pixels", rectangle->right - rectangle->left,
                   rectangle->bottom - rectangle->top);
}

std::string chunkText(Effect& effect) {
  if (!effect.hasChunk()) return "none (parameters and programs only)";
  return std::to_string(effect.chunk().size()) + " bytes";
}

std::string tailText(VstIntPtr tail) {
  if (tail == 0) return "0 (not told)";
  if (tail == 1) return "1 (none)";
  return std::to_string(tail) + " frames";
}

}  // namespace

std::string describeEffect(Effect& effect) {
  const AEffect& record = effect.record();
  std::string text = row("plug-in", effect.path().string());
  text += row("effect name", effect.text(effGetEffectName));
  text += row("vendor", effect.text(effGetVendorString));
  text += row("product", effect.text(effGetProductString));
  text += row("vendor version", std::to_string(effect.dispatch(effGetVendorVersion)));
  text += row("effect version", std::to_string(record.version));
  text += row("VST version", std::to_string(effect.dispatch(effGetVstVersion)));
  text += row("unique ID", idText(record.uniqueID));
  text += row("identity", idText(static_cast<VstInt32>(effect.dispatch(effIdentify))));
  text += row("category", categoryText(effect.dispatch(effGetPlugCategory)));
  text += row("flags", flagsText(record.flags));
  text += row("programs", programRow(effect));
  text += row("parameters", std::to_string(record.numParams));
  for (int pin = 0; pin < record.numInputs; ++pin) {
    text +=
        row(("input " + std::to_string(pin)).c_str(), pinText(effect, effGetInputProperties, pin));
  }
  for (int pin = 0; pin < record.numOutputs; ++pin) {
    text += row(("output " + std::to_string(pin)).c_str(),
                pinText(effect, effGetOutputProperties, pin));
  }
  text += row("arrangement", arrangementText(effect));
  text += row("latency", std::to_string(record.initialDelay) + " frames");
  text += row("tail", tailText(effect.dispatch(effGetTailSize)));
  if (const std::string rates = adapterFor(effect)->sampleRates(); !rates.empty())
    text += row("sample rates", rates);
  text += row("state", chunkText(effect));
  text += row("editor", editorText(effect));
  text += row("MIDI channels",
              std::to_string(effect.dispatch(effGetNumMidiInputChannels)) + " in, " +
                  std::to_string(effect.dispatch(effGetNumMidiOutputChannels)) + " out");
  return text + capabilities(effect);
}
