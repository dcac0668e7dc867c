// The whole effect's preset bar with a window that needs no display, its buttons for files, and one
// file that the user chooses in every dialog.
#pragma once

#include "fuzz/memoryfile.h"

namespace fuzz {

enum class FileButton { loadBank, loadPreset, saveBank, savePreset };

// The file that is chosen in every dialog, for saving and for loading.
MemoryFile& chosenFile();

// Presses the button and passes an idle pass, which completes the operation. reversed: "load,
// endian-reversed". The effect is fuzz::wholeEffect().
void press(FileButton button, bool reversed = false);

}  // namespace fuzz
