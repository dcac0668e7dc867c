// The folders around the plug-in's own image.
#include "platform/modulepath.h"

#include "platform/modulefile.h"
#include "platform/paths.h"

namespace {

// Found while the module loads: a host may name it relative to a folder that it leaves afterwards.
// Plain memory, which needs no end.
struct OwnFile {
  OwnFile() noexcept { findModuleFile(path); }
  char path[PATH_MAX] = {};
};
const OwnFile ownFile;

// "/a/b/" -> "/a/"; empty above the root.
std::string folderAbove(std::string folder) {
  if (!folder.empty()) folder.pop_back();
  return folderPart(folder);
}

}  // namespace

std::string moduleFile() {
  return ownFile.path;
}

std::string moduleFolder() {
  return folderPart(moduleFile());
}

std::string resourcesFolder() {
  const std::string bundle = folderAbove(moduleFolder());
  if (bundle.empty()) return {};
  const std::string folder = bundle + "Resources/";
  return isFolder(folder) ? folder : std::string();
}
