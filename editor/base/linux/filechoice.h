// The command lines that make the desktop's dialog programs ask for a file.
#pragma once

#include <string>
#include <vector>

#include "editor/base/filedialog.h"
#include "platform/linux/desktopdialog.h"

// The argument vector. Texts are data, whatever they hold.
std::vector<std::string> fileChoice(const desktopdialog::Program& program,
                                    const FileDialogRequest& request);
