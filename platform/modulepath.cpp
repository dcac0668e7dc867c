// The folders around the plug-in's own image.
#include "platform/modulepath.h"

#include <sys/stat.h>

namespace {

// "/a/b/c" -> "/a/b/", "/a/b/" -> "/a/"; empty above the root.
std::string folderOf(const std::string& path) {
  if (path.size() < 2) return {};
  return path.substr(0, path.rfind('/', path.size() - 2) + 1);
}

}  // namespace

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
