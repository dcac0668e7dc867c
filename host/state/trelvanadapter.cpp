// Trelvan's 32 presets, which it shows hosts as one program: they are reached through its chunk.
#include <algorithm>
#include <cmath>

#include "effect/parameters.h"
#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/base/wholefile.h"
#include "host/state/automationfile.h"
#include "host/state/effectadapter.h"
#include "host/state/namelookup.h"
#include "host/state/presetfilenames.h"
#include "host/state/savedstate.h"
#include "host/state/trelvanbank.h"
#include "host/state/values.h"
#include "presetsystem/image/presetimage.h"

namespace {

// Of the presets for whole mixes the one that does least harm to any sound: a delay of 2.6 ms, too
// short to be heard as an echo of a drum, and the side 6 dB below the mid, which raises peaks by
// 4 dB at most.
constexpr const char* kPresetForFiles = "mix 2";

constexpr double kWidthSteps = 1000.0;   // of a typed width: tenths of a per cent
constexpr double kWidthRounding = 1e-6;  // what single precision makes of a width, with room

bool setsTheWidth(Effect& effect, const StateArguments& arguments) {
  if (arguments.state || arguments.bank || arguments.preset || arguments.values[kWidthIndex])
    return true;
  std::vector<std::string> names;
  names.reserve(kParameters.size());
  for (const Parameter& parameter : kParameters) names.emplace_back(parameter.name);
  for (const ParameterSetting& setting : arguments.settings) {
    if (findParameter(names, setting.parameter) == kWidthIndex) return true;
  }
  if (!arguments.automation) return false;
  const auto lanes = readAutomation(effect, *arguments.automation);
  return std::any_of(lanes.begin(), lanes.end(),
                     [](const AutomationLane& lane) { return lane.parameter == kWidthIndex; });
}

class TrelvanAdapter final : public EffectAdapter {
 public:
  explicit TrelvanAdapter(Effect& adapted) : effect(adapted) {}

  void loadState(const std::string& file) override {
    const Effect::Bytes bytes = readWholeFile(file);
    chunkOf(bytes, effect, file);  // to name another effect whose it is
    takeChunk(bytes, Effect::ChunkOf::bank, file);
  }

  Effect::Bytes stateFile() override { return effect.chunk(); }  // it tells whose it is

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

  // Trelvan begins with a width of 0, which folds to mono: a host shows its window to a person, a
  // file has nobody.
  std::optional<std::string> presetForFiles(const StateArguments& arguments) override {
    if (setsTheWidth(effect, arguments) || effect.parameter(kWidthIndex) > 0.0F)
      return std::nullopt;
    const auto names = presetNames();  // a bank of the user's own may hold others
    const bool isThere = std::find(names.begin(), names.end(), kPresetForFiles) != names.end();
    return isThere ? std::optional<std::string>(kPresetForFiles) : std::nullopt;
  }

  std::string optionForSide(double factor) override {
    const float now = effect.parameter(kWidthIndex);
    if (factor == 1.0 || !std::isfinite(factor) || now == 0.0F) return {};
    if (effect.parameter(kProcessIndex) < 0.5F) return {};
    const Parameter& width = parameterAt(kWidthIndex);
    const double exact = width.raw(width.derived(now) * factor) * kWidthSteps;
    const double steps = factor < 1.0 ? std::floor(exact * (1.0 - kWidthRounding))
                                      : std::ceil(exact * (1.0 + kWidthRounding));
    if (steps < 1.0 || steps > kWidthSteps) return {};
    return formatted("--width %.1f%%", 100.0 * steps / kWidthSteps);
  }

  // Of the line's frames the newest is the one that is not late.
  std::string sampleRates() const override {
    constexpr VstInt32 kLongest = kDelayFrames - 1;
    const auto highest = static_cast<int>(parametercurves::kLowestHz) * kLongest;
    return formatted(
        "up to %d Hz; above, base frequencies below RATE/%d Hz are delayed by %d frames less than "
        "a period, or twice that",
        highest, kLongest, kDelayFrames);
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
