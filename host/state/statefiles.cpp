// The files that a run leaves of an effect's state.
#include "host/state/statefiles.h"

#include "host/base/temporaryfile.h"
#include "host/base/wholefile.h"
#include "host/state/effectadapter.h"
#include "host/state/fxpresets.h"
#include "host/state/presetfilenames.h"

namespace {

Effect::Bytes presetBytes(Effect& effect, const std::string& file) {
  return isFxPreset(file) ? fxPresetOf(effect) : adapterFor(effect)->presetFile();
}

Effect::Bytes bankBytes(Effect& effect, const std::string& file) {
  return isFxBank(file) ? fxBankOf(effect) : adapterFor(effect)->bankFile();
}

}  // namespace

void checkStateFiles(Effect& effect, const StateFiles& files, bool replace) {
  if (files.preset) {
    checkCanBeMade(*files.preset, replace);
    presetBytes(effect, *files.preset);
  }
  if (files.bank) {
    checkCanBeMade(*files.bank, replace);
    bankBytes(effect, *files.bank);
  }
}

void writeStateFiles(Effect& effect, const StateFiles& files, bool replace) {
  Effect::Bytes preset;
  Effect::Bytes bank;
  if (files.preset) preset = presetBytes(effect, *files.preset);
  if (files.bank) bank = bankBytes(effect, *files.bank);
  if (files.preset) writeWholeFile(*files.preset, preset, replace);
  if (files.bank) writeWholeFile(*files.bank, bank, replace);
}
