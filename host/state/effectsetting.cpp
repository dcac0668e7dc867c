// Which effect a file went through, and how it was set.
#include "host/state/effectsetting.h"

#include "host/state/effectadapter.h"

EffectSetting settingOf(Effect& effect) {
  EffectSetting setting;
  setting.effect = effect.text(effGetEffectName);
  if (effect.record().numPrograms != 0) {
    setting.preset = {adapterFor(effect)->currentPreset(), effect.text(effGetProgramName)};
  }
  for (int index = 0; index < effect.parameterCount(); ++index)
    setting.parameters.push_back(factsOfParameter(effect, index));
  return setting;
}
