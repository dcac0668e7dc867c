// What an effect says of itself, its parameters and its presets, for scripts.
#include "host/cli/effectjson.h"

#include <algorithm>

#include "host/state/effectfacts.h"
#include "host/state/effectstate.h"
#include "host/state/parameterfacts.h"

namespace {

Json flagsJson(VstInt32 flags) {
  Json all = Json::object();
  for (const FlagName& flag : kFlagNames) {
    std::string name = flag.name;
    std::replace(name.begin(), name.end(), ' ', '_');
    all[name] = (flags & flag.bit) != 0;
  }
  return all;
}

Json pinsJson(const std::vector<std::optional<PinFacts>>& pins) {
  Json all = Json::array();
  for (const std::optional<PinFacts>& pin : pins) {
    if (!pin) {
      all.push_back(nullptr);
      continue;
    }
    Json one = {{"label", pin->label},
                {"short_label", pin->shortLabel},
                {"active", pin->active},
                {"stereo", pin->stereo}};
    if (pin->arrangement) one["arrangement"] = *pin->arrangement;
    all.push_back(std::move(one));
  }
  return all;
}

Json arrangementJson(const std::optional<ArrangementFacts>& told) {
  if (!told) return nullptr;
  return {{"inputs", told->inputs},
          {"input_type", told->inputType},
          {"outputs", told->outputs},
          {"output_type", told->outputType}};
}

Json editorJson(const EffectFacts& facts) {
  if (!facts.hasEditor) return nullptr;
  if (!facts.editorSize) return Json::object();
  return {{"width", facts.editorSize->width}, {"height", facts.editorSize->height}};
}

}  // namespace

Json effectJson(Effect& effect) {
  const EffectFacts facts = factsOf(effect);
  Json document = {{"file", facts.file},
                   {"name", facts.name},
                   {"vendor", facts.vendor},
                   {"product", facts.product},
                   {"vendor_version", facts.vendorVersion},
                   {"effect_version", facts.version},
                   {"vst_version", facts.vstVersion},
                   {"unique_id", idLetters(facts.uniqueId)},
                   {"unique_id_number", facts.uniqueId},
                   {"category", categoryName(facts.category).value_or("unknown")},
                   {"category_number", facts.category},
                   {"flags", flagsJson(facts.flags)},
                   {"programs", facts.programs},
                   {"current_program", facts.currentProgram},
                   {"program_name", facts.programName},
                   {"parameters", facts.parameters},
                   {"inputs", pinsJson(facts.inputs)},
                   {"outputs", pinsJson(facts.outputs)},
                   {"arrangement", arrangementJson(facts.arrangement)},
                   {"latency_frames", facts.latency}};
  // 1 is the interface's word for none, 0 says nothing.
  document["tail_frames"] =
      facts.tail == 0 ? Json(nullptr) : Json(facts.tail == 1 ? 0 : facts.tail);
  if (!facts.sampleRates.empty()) document["sample_rates"] = facts.sampleRates;
  document["state_bytes"] = facts.stateBytes ? Json(*facts.stateBytes) : Json(nullptr);
  document["editor"] = editorJson(facts);
  document["midi_inputs"] = facts.midiInputs;
  document["midi_outputs"] = facts.midiOutputs;
  document["can"] = facts.can;
  document["cannot"] = facts.cannot;
  return document;
}

Json parametersJson(Effect& effect) {
  Json all = Json::array();
  for (int index = 0; index < effect.parameterCount(); ++index) {
    const ParameterFacts facts = factsOfParameter(effect, index);
    Json one = {
        {"index", index},          {"name", facts.name},  {"value", numberOf(facts.value)},
        {"text", facts.display},   {"unit", facts.label}, {"automatable", facts.automatable},
        {"switch", facts.isSwitch}};
    if (facts.steps) {
      one["steps"] = {numberOf(facts.steps->small), numberOf(facts.steps->usual),
                      numberOf(facts.steps->large)};
    }
    if (facts.range) one["range"] = {facts.range->least, facts.range->most};
    all.push_back(std::move(one));
  }
  return all;
}

Json presetsJson(Effect& effect) {
  const PresetNames presets = presetsOf(effect);
  Json all = Json::array();
  for (std::size_t number = 0; number < presets.names.size(); ++number) {
    all.push_back({{"number", number},
                   {"name", presets.names[number]},
                   {"current", static_cast<int>(number) == presets.current}});
  }
  return all;
}

Json pluginsJson(const std::vector<InstalledPlugin>& plugins) {
  Json all = Json::array();
  for (const InstalledPlugin& plugin : plugins)
    all.push_back({{"name", plugin.name}, {"file", plugin.path.string()}});
  return all;
}
