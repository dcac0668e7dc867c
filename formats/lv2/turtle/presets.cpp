// The factory presets, out of the chunk of an effect that has just been made.
#include "formats/lv2/turtle/turtle.h"
#include "presetsystem/image/image.h"

namespace turtle {

// The slots after the factory's list are filled with the first preset again.
std::vector<Preset> presetsOf(HostedEffect& effect) {
  presetimage::Bank bank{};
  presetimage::InvalidParameters repaired;
  const presetimage::Image image = presetimage::identify(effect.chunk(), effect.uniqueID());
  if (presetimage::readBank(image, {}, bank[0], bank, repaired) != presetimage::Reading::done)
    return {};
  std::vector<Preset> presets;
  for (const ACombProgram& program : bank) {
    Preset preset{program.name, {}};
    if (!presets.empty() && preset.name == presets.front().name) break;
    for (int index = 0; index < effect.parameterCount(); ++index)
      preset.values.push_back(program.parameter(index));
    presets.push_back(std::move(preset));
  }
  return presets;
}

}  // namespace turtle
