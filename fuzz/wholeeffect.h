// One whole effect for all inputs of a fuzz target, with a host that answers little and preferences
// that are empty.
#pragma once

#include <filesystem>

#include "effect/trelvan.h"
#include "presetsystem/bar/cpresetsystemeditor.h"

namespace fuzz {

// Made at the first call, with XDG_CONFIG_HOME set to an empty temporary folder, in memory where
// the system has one there, that goes away with the program.
Trelvan& wholeEffect();
CPresetSystemEditor& wholeEffectsEditor();
std::filesystem::path preferencesFile();  // in that folder, in one that need not be there

// Puts the bank, the default record's slots and the selection back, so that no input depends on the
// one before it.
void resetWholeEffect(const presetimage::Bank& bank, long current);

// What every state of the effect must keep: the bank normalised, the selection one of the bank.
void requireSoundState();
// What is true after a selection has been pushed into the effect.
void requireCurrentPresetPlays();

}  // namespace fuzz
