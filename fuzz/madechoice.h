// File dialogs in which the user has always chosen already: linked in the place of the desktop's.
#pragma once

#include <string>

namespace fuzz {

// What is chosen in the dialogs to come: a full path. User-interface thread.
void chooseFile(const std::string& path);

}  // namespace fuzz
