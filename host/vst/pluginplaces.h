// Where this system keeps plug-ins, and where a bundle keeps the binary for it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// In a bundle's Contents/: the folder with the binaries that this program can load,
// and their ending.
std::string binaryFolderInBundle();
std::string binarySuffix();

// Where hosts look for plug-ins: the person's own folders, below the home folder, and everybody's.
std::vector<std::filesystem::path> ownPluginFoldersInHome();
std::vector<std::filesystem::path> commonPluginFolders();
