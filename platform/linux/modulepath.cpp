// The plug-in's own image by the dynamic loader's list of images.
#include "platform/modulepath.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/stat.h>

#include <climits>
#include <cstdlib>

namespace {

std::string imagePath() {
  Dl_info info{};
  link_map* image = nullptr;
  const auto* own = reinterpret_cast<const void*>(&imagePath);  // an address inside the image
  if (dladdr1(own, &info, reinterpret_cast<void**>(&image), RTLD_DL_LINKMAP) == 0 || image == nullptr) return {};
  // The program itself has no name in the list, and only the name that it was called by elsewhere.
  const char* name = image->l_name[0] != 0 ? image->l_name : "/proc/self/exe";
  char path[PATH_MAX];
  return realpath(name, path) != nullptr ? path : std::string();
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
