// Any effect, as its interface describes it: programs for presets, and its own words for values.
#pragma once

#include "host/state/effectadapter.h"

class GenericAdapter final : public EffectAdapter {
 public:
  explicit GenericAdapter(Effect& adapted) : effect(adapted) {}

  void loadState(const std::string& file) override;
  std::vector<std::string> loadBank(const std::string& file) override;
  void choosePreset(const std::string& preset) override;
  void setValue(int index, float value) override;
  void setTyped(int index, const ParameterSetting& setting) override;
  std::vector<std::string> presetNames() override;
  int currentPreset() override;

 private:
  Effect& effect;
};
