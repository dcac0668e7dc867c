// Everything that an effect says of itself, in words.
#include "host/cli/effectinfo.h"

#include "host/base/text.h"
#include "host/state/effectfacts.h"

namespace {

// A label may hold anything.
std::string row(const std::string& title, const std::string& text) {
  return formatted("%-20s ", title.c_str()) + onOneLine(text) + "\n";
}

std::string idText(VstInt32 id) {
  return formatted("'%s' (0x%08X)", idLetters(id).c_str(), static_cast<unsigned>(id));
}

std::string categoryText(VstIntPtr category) {
  const std::optional<std::string> name = categoryName(category);
  return std::to_string(category) + (name ? " (" + *name + ")" : "");
}

std::string flagsText(VstInt32 flags) {
  std::string text = formatted("0x%X", static_cast<unsigned>(flags));
  for (const FlagName& flag : kFlagNames) {
    if ((flags & flag.bit) != 0) text += std::string(", ") + flag.name;
  }
  return text;
}

std::string pinText(const std::optional<PinFacts>& pin) {
  if (!pin) return "no answer";
  std::string text = "\"" + pin->label + "\"";
  if (!pin->shortLabel.empty()) text += " (\"" + pin->shortLabel + "\")";
  if (pin->active) text += ", active";
  if (pin->stereo) text += ", stereo";
  if (pin->arrangement) text += ", arrangement " + std::to_string(*pin->arrangement);
  return text;
}

std::string pinRows(const char* kind, const std::vector<std::optional<PinFacts>>& pins) {
  std::string text;
  for (std::size_t pin = 0; pin < pins.size(); ++pin)
    text += row(std::string(kind) + " " + std::to_string(pin), pinText(pins[pin]));
  return text;
}

std::string arrangementText(const std::optional<ArrangementFacts>& told) {
  if (!told) return "no answer";
  return formatted("%d channels in (type %d), %d out (type %d)", told->inputs, told->inputType,
                   told->outputs, told->outputType);
}

std::string editorText(const EffectFacts& facts) {
  if (!facts.hasEditor) return "none";
  if (!facts.editorSize) return "yes, size not known yet";
  return formatted("%d x %d pixels", facts.editorSize->width, facts.editorSize->height);
}

std::string tailText(VstIntPtr tail) {
  if (tail == 0) return "0 (not told)";
  if (tail == 1) return "1 (none)";
  return std::to_string(tail) + " frames";
}

std::string listed(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  return list;
}

}  // namespace

std::string describeEffect(Effect& effect) {
  const EffectFacts facts = factsOf(effect);
  std::string text = row("plug-in", facts.file);
  text += row("effect name", facts.name);
  text += row("vendor", facts.vendor);
  text += row("product", facts.product);
  text += row("vendor version", std::to_string(facts.vendorVersion));
  text += row("effect version", std::to_string(facts.version));
  text += row("VST version", std::to_string(facts.vstVersion));
  text += row("unique ID", idText(facts.uniqueId));
  text += row("identity", idText(facts.identity));
  text += row("category", categoryText(facts.category));
  text += row("flags", flagsText(facts.flags));
  text += row("programs", formatted("%d (current %d, \"%s\")", facts.programs, facts.currentProgram,
                                    facts.programName.c_str()));
  text += row("parameters", std::to_string(facts.parameters));
  text += pinRows("input", facts.inputs) + pinRows("output", facts.outputs);
  text += row("arrangement", arrangementText(facts.arrangement));
  text += row("latency", std::to_string(facts.latency) + " frames");
  text += row("tail", tailText(facts.tail));
  if (!facts.sampleRates.empty()) text += row("sample rates", facts.sampleRates);
  text += row("state", facts.stateBytes ? std::to_string(*facts.stateBytes) + " bytes"
                                        : "none (parameters and programs only)");
  text += row("editor", editorText(facts));
  text += row("MIDI channels", std::to_string(facts.midiInputs) + " in, " +
                                   std::to_string(facts.midiOutputs) + " out");
  text += row("can do", facts.can.empty() ? "nothing that was asked" : listed(facts.can));
  if (!facts.cannot.empty()) text += row("cannot do", listed(facts.cannot));
  return text;
}
