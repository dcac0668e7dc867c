// Trelvan's 32 presets, which it shows hosts as one program: they are reached through its chunk.
#pragma once

#include "host/state/effectadapter.h"
#include "host/state/trelvanbank.h"

class TrelvanAdapter final : public EffectAdapter {
 public:
  explicit TrelvanAdapter(Effect& adapted) : effect(adapted) {}

  void loadState(const std::string& file) override;
  std::vector<std::string> loadBank(const std::string& file) override;
  void choosePreset(const std::string& preset) override;
  void setValue(int index, float value) override;
  void setTyped(int index, const ParameterSetting& setting) override;
  std::vector<std::string> presetNames() override;
  int currentPreset() override;

 private:
  TrelvanBank bank();
  void giveBank(const TrelvanBank& bank);

  Effect& effect;
};
