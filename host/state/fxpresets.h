// The interface's own preset and bank files, .fxp and .fxb, on their way into an effect and out.
#pragma once

#include <string>
#include <vector>

#include "host/state/effectadapter.h"
#include "host/vst/effect.h"

// A preset goes into the current program. Throw Failure, and change nothing where the file is
// damaged, another effect's, of the other kind, or holds more than the effect has room for.
void loadFxPreset(Effect& effect, EffectAdapter& adapter, const std::string& file);
void loadFxBank(Effect& effect, EffectAdapter& adapter, const std::string& file);

// The bytes of such files. Effects with chunks give theirs; of others the programs are selected one
// after the other, and the current one is as it was in the end. Throw Failure.
std::vector<unsigned char> fxPresetOf(Effect& effect);
std::vector<unsigned char> fxBankOf(Effect& effect);
