// The plug-in's own image by the dynamic loader.
#include "platform/modulepath.h"

#include <dlfcn.h>
#include <sys/stat.h>

#include <climits>
#include <cstdlib>

namespace {

std::string imagePath() {
  Dl_info info{};
  const auto* own = reinterpret_cast<const void*>(&imagePath);  // an address inside the image
  if (dladdr(own, &info) == 0 || info.dli_fname == nullptr) return {};
  char path[PATH_MAX];
  return realpath(info.dli_fname, path) != nullptr ? path : std::string();
}

// "/a/b/c" -> "/a/b/", "/a/b/" -> "/a/"; empty above the root.
std::string folderOf(const std::string& path) {
  if (path.size() < 2) return {};
  return path.substr(0, path.rfind('/', path.size() - 2) + 1);
}

}  // namespace

std::string moduleFolder() {
  return folderOf(imagePath());
}

std::string resourcesFolder() {
  const std::string bundle = folderOf(moduleFolder());
  if (bundle.empty()) return {};
  const std::string folder = bundle + "Resources/";
  struct stat status {};
  return stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) ? folder : std::string();
}
