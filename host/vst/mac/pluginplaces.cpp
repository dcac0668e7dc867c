// macOS: where plug-ins lie, and the binary in their bundles.
#include "host/vst/pluginplaces.h"

std::string binaryFolderInBundle() {
  return "MacOS";
}

std::string binarySuffix() {
  return {};
}

std::vector<std::filesystem::path> ownPluginFoldersInHome() {
  return {"Library/Audio/Plug-Ins/VST"};
}

std::vector<std::filesystem::path> commonPluginFolders() {
  return {"/Library/Audio/Plug-Ins/VST"};
}
