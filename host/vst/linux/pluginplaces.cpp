// Linux: where plug-ins lie, and the binary in their bundles.
#include "host/vst/pluginplaces.h"

std::string binaryFolderInBundle() {
  return WIDEN_PROCESSOR "-linux";  // set by the build: "x86_64"
}

std::string binarySuffix() {
  return ".so";
}

std::filesystem::path ownPluginFolderInHome() {
  return ".vst";
}

std::vector<std::filesystem::path> commonPluginFolders() {
  return {"/usr/local/lib/vst", "/usr/lib/vst"};
}
