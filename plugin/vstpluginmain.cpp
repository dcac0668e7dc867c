// The module's one export.
#include "plugin/createeffectinstance.h"

// Returns the new effect's record, or null where the host names no version or nothing could be
// made. Called on the host's user-interface thread, in scanners on any.
extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(
    audioMasterCallback audioMaster) {
  return createEffectRecord(audioMaster);
}
