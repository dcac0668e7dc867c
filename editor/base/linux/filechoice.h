// What the desktop's dialogs are told of a request for a file, and the command lines of the
// programs among them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "editor/base/filedialog.h"
#include "platform/linux/desktopdialog.h"

// "*.orv" and "*.ORV".
std::array<std::string, 2> filePatterns(const std::string& extension);
// Where the dialog opens: a folder that is there, or the user's home, or at least "/".
std::string dialogFolder(const FileDialogRequest& request);

// The argument vector. Texts are data, whatever they hold.
std::vector<std::string> fileChoice(const desktopdialog::Program& program,
                                    const FileDialogRequest& request);
