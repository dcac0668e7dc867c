// Trelvan's 32 presets, which it shows hosts as one program: they are reached through its chunk.
#include "effect/parameters.h"
#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/base/wholefile.h"
#include "host/state/effectadapter.h"
#include "host/state/namelookup.h"
#include "host/state/presetfilenames.h"
#include "host/state/trelvanbank.h"
#include "host/state/values.h"
#include "presetsystem/image/presetimage.h"

namespace {

class TrelvanAdapter final : public EffectAdapter {
 public:
  explicit TrelvanAdapter(Effect& adapted) : effect(adapted) {}

  void loadState(const std::string& file) override {
    takeChunk(readWholeFile(file), Effect::ChunkOf::bank, file);
  }

  void takeChunk(const Effect::Bytes& chunk, Effect::ChunkOf what,
                 const std::string& file) override {
    TrelvanBank::checkState(chunk, effect.record().uniqueID, file);
    effect.setChunk(chunk, what);
  }

  std::vector<std::string> loadBank(const std::string& file) override {
    TrelvanBank loaded = bank();
    loaded.takeNotes();  // of what the effect held, nobody asked
    loaded.loadBank(readWholeFile(file), file);
    std::vector<std::string> notes = loaded.takeNotes();
    for (std::string& note : notes) note.insert(0, file + ": ");
    giveBank(loaded);
    return notes;
  }

  void choosePreset(const std::string& preset) override {
    TrelvanBank changed = bank();
    if (isPresetFile(preset)) {
      changed.loadPreset(readWholeFile(preset), preset);
    } else {
      changed.select(findPreset(presetNames(), preset));
    }
    giveBank(changed);
  }

  void setValue(int index, float value) override { effect.setParameter(index, value); }
  float typedValue(int index, const std::string& what, const std::string& typed) override {
    return parseTrelvanValue(index, what, typed);
  }

  Effect::Bytes presetFile() override { return bank().presetFile(); }
  Effect::Bytes bankFile() override { return bank().bankFile(); }

  std::vector<std::string> presetNames() override {
    return effect.programNamesByIndex(presetimage::kPresetCount);
  }
  int currentPreset() override { return bank().current(); }

  std::string sampleRates() const override {
    const auto highest = static_cast<int>(parametercurves::kLowestHz) * kDelayFrames;
    return formatted(
        "below %d Hz; from there on, base frequencies up to RATE/%d Hz are delayed by %d "
        "frames less than a period",
        highest, kDelayFrames, kDelayFrames);
  }

 private:
  TrelvanBank bank() { return {effect.chunk(), effect.record().uniqueID, effect.plugin()}; }
  void giveBank(const TrelvanBank& bank) {
    const auto chunk = bank.chunk();
    effect.setChunk(chunk);
    if (effect.chunk() != chunk) {
      throw Failure(effect.plugin() + ": the effect did not take the presets it was given");
    }
  }

  Effect& effect;
};

}  // namespace

std::unique_ptr<EffectAdapter> trelvanAdapter(Effect& effect) {
  return std::make_unique<TrelvanAdapter>(effect);
}
