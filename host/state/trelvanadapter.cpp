// Trelvan's presets, files and parameters.
#include "host/state/trelvanadapter.h"

#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "host/state/namelookup.h"
#include "host/state/values.h"
#include "presetsystem/image/presetimage.h"

TrelvanBank TrelvanAdapter::bank() {
  return {effect.chunk(), effect.record().uniqueID, effect.plugin()};
}

void TrelvanAdapter::giveBank(const TrelvanBank& bank) {
  const auto chunk = bank.chunk();
  effect.setChunk(chunk);
  if (effect.chunk() != chunk) {
    throw Failure(effect.plugin() + ": the effect did not take the presets it was given");
  }
}

void TrelvanAdapter::loadState(const std::string& file) {
  const auto bytes = readWholeFile(file);
  TrelvanBank::checkState(bytes, effect.record().uniqueID, file);
  effect.setChunk(bytes);
}

std::vector<std::string> TrelvanAdapter::loadBank(const std::string& file) {
  TrelvanBank loaded = bank();
  loaded.takeNotes();  // of what the effect held, nobody asked
  loaded.loadBank(readWholeFile(file), file);
  std::vector<std::string> notes = loaded.takeNotes();
  for (std::string& note : notes) note.insert(0, file + ": ");
  giveBank(loaded);
  return notes;
}

void TrelvanAdapter::choosePreset(const std::string& preset) {
  TrelvanBank changed = bank();
  if (isPresetFile(preset)) {
    changed.loadPreset(readWholeFile(preset), preset);
  } else {
    changed.select(findPreset(presetNames(), preset));
  }
  giveBank(changed);
}

void TrelvanAdapter::setValue(int index, float value) {
  effect.setParameter(index, value);
}

void TrelvanAdapter::setTyped(int index, const ParameterSetting& setting) {
  effect.setParameter(index, parseTrelvanValue(index, "--set " + setting.parameter, setting.value));
}

std::vector<std::string> TrelvanAdapter::presetNames() {
  return effect.programNamesByIndex(presetimage::kPresetCount);
}

int TrelvanAdapter::currentPreset() {
  return bank().current();
}
