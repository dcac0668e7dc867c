// Linux: where plug-ins lie, and the binary in their bundles.
#include "host/vst/pluginplaces.h"

std::string binaryFolderInBundle() {
  return WIDEN_PROCESSOR "-linux";  // set by the build: "x86_64"
}

std::string binarySuffix() {
  return ".so";
}

std::vector<std::filesystem::path> ownPluginFoldersInHome() {
  return {".vst", ".lxvst"};
}

std::vector<std::filesystem::path> commonPluginFolders() {
  return {"/usr/local/lib/vst", "/usr/local/lib/lxvst", "/usr/lib/vst", "/usr/lib/lxvst"};
}
