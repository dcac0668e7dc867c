// Any effect, as its interface describes it: programs for presets, and its own words for values.
#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "host/state/displayedvalue.h"
#include "host/state/effectadapter.h"
#include "host/state/namelookup.h"
#include "host/state/presetfilenames.h"
#include "host/state/savedstate.h"
#include "host/state/values.h"

namespace {

class GenericAdapter final : public EffectAdapter {
 public:
  explicit GenericAdapter(Effect& adapted) : effect(adapted) {}

  void loadState(const std::string& file) override {
    const Effect::Bytes bytes = readWholeFile(file);
    effect.setChunk(chunkOf(bytes, effect, file));
  }

  Effect::Bytes stateFile() override { return namedState(effect); }

  void takeChunk(const Effect::Bytes& chunk, Effect::ChunkOf what, const std::string&) override {
    effect.setChunk(chunk, what);
  }

  std::vector<std::string> loadBank(const std::string&) override {
    throw Failure("--bank: " + effect.plugin() + " takes no bank files of Trelvan, but .fxb");
  }

  void choosePreset(const std::string& preset) override {
    if (isPresetFile(preset)) {
      throw Failure(preset + ": " + effect.plugin() +
                    " takes no preset files of Trelvan, but .fxp");
    }
    if (effect.record().numPrograms == 0)
      throw Failure(effect.plugin() + ": the effect has no presets");
    effect.selectProgram(findPreset(presetNames(), preset));
  }

  void setValue(int, float) override {
    throw Failure(effect.plugin() +
                  " is not Trelvan: its parameters are set with --set NAME=VALUE");
  }

  // A number is the raw value. Per cent, on and off are what the effect shows as such, where it
  // does, and else of its range and its ends. What is left is understood by the effect, or shown by
  // it for some value.
  float typedValue(int index, const std::string& what, const std::string& typed) override {
    const auto fraction = readGenericValue(typed);
    const bool isWord = fraction && !readNumber(typed);
    const bool isRaw = fraction && !isWord && typed.find('%') == std::string::npos;
    if (fraction && (isRaw || showsFor(effect, index, *fraction, typed))) return *fraction;
    const auto understood = valueInItsWords(index, typed);
    if (understood && showsFor(effect, index, *understood, typed)) return *understood;
    if (const auto shown = findDisplayed(effect, index, typed)) return *shown;
    if (understood && !isWord) return *understood;
    if (fraction) return *fraction;
    throw Failure(what + ": \"" + typed +
                  "\" is not 0 to 1, 0% to 100%, on or off, and the effect does not understand or "
                  "show it either (now it shows \"" +
                  shownText(effect, index) + "\")");
  }

  Effect::Bytes presetFile() override {
    throw Failure("--save-preset: " + effect.plugin() + " is not Trelvan: name the file .fxp");
  }
  Effect::Bytes bankFile() override {
    throw Failure("--save-bank: " + effect.plugin() + " is not Trelvan: name the file .fxb");
  }

  std::vector<std::string> presetNames() override { return effect.programNames(); }
  int currentPreset() override { return static_cast<int>(effect.dispatch(effGetProgram)); }

  std::string sampleRates() const override { return {}; }

 private:
  std::optional<float> valueInItsWords(int index, std::string typed) {
    const float before = effect.parameter(index);
    if (effect.dispatch(effString2Parameter, index, 0, typed.data()) == 0) return std::nullopt;
    const float value = effect.parameter(index);
    effect.setParameter(index, before);
    return value;
  }

  Effect& effect;
};

}  // namespace

std::unique_ptr<EffectAdapter> genericAdapter(Effect& effect) {
  return std::make_unique<GenericAdapter>(effect);
}
