// Any effect, as its interface describes it: programs for presets, and its own words for values.
#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "host/state/effectadapter.h"
#include "host/state/namelookup.h"
#include "host/state/presetfilenames.h"
#include "host/state/values.h"

namespace {

class GenericAdapter final : public EffectAdapter {
 public:
  explicit GenericAdapter(Effect& adapted) : effect(adapted) {}

  void loadState(const std::string& file) override { effect.setChunk(readWholeFile(file)); }

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

  void setTyped(int index, const ParameterSetting& setting) override {
    if (const auto value = readGenericValue(setting.value)) {
      return effect.setParameter(index, *value);
    }
    std::string typed = setting.value;  // in the effect's own words, if it understands any
    if (effect.dispatch(effString2Parameter, index, 0, typed.data()) != 0) return;
    throw Failure(
        "--set " + setting.parameter + ": \"" + setting.value +
        "\" is not 0 to 1, 0% to 100%, on or off, and the effect does not understand it either");
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
  Effect& effect;
};

}  // namespace

std::unique_ptr<EffectAdapter> genericAdapter(Effect& effect) {
  return std::make_unique<GenericAdapter>(effect);
}
