// The folders around the plug-in's own image.
#include "platform/modulepath.h"

#include <sys/stat.h>

#include "platform/modulefile.h"

namespace {

// Found while the module loads: a host may name it relative to a folder that it leaves afterwards. Plain memory, which
// needs no end.
struct OwnFile {
  OwnFile() noexcept { findModuleFile(path); }
  char path[PATH_MAX] = {};
};
const OwnFile ownFile;

// "/a/b/c" -> "/a/b/", "/a/b/" -> "/a/"; empty above the root.
std::string folderOf(const std::string& path) {
  if (path.size() < 2) return {};
  return path.substr(0, path.rfind('/', path.size() - 2) + 1);
}

}  // namespace

std::string moduleFile() {
  return ownFile.path;
}

std::string moduleFolder() {
  return folderOf(moduleFile());
}

std::string resourcesFolder() {
  const std::string bundle = folderOf(moduleFolder());
  if (bundle.empty()) return {};
  const std::string folder = bundle + "Resources/";
  struct stat status {};
  return stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) ? folder : std::string();
}
