// The entry point's work, apart from the export, so that tests and tools can link it.
#include "plugin/createeffectinstance.h"

#include "plugin/audioeffect.h"

bool hostHasVersion(audioMasterCallback audioMaster) {
  return audioMaster != nullptr &&
         audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0F) != 0;
}

AEffect* createEffectRecord(audioMasterCallback audioMaster) {
  if (!hostHasVersion(audioMaster)) return nullptr;
  try {
    AudioEffect* effect = createEffectInstance(audioMaster);
    return effect == nullptr ? nullptr : effect->getAeffect();
  } catch (...) {
    // out of memory is the host's null effect, never an exception through its stack
    return nullptr;
  }
}
