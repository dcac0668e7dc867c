// The plug-in's own image by the dynamic loader.
#include <dlfcn.h>

#include <climits>
#include <cstdlib>

#include "platform/modulepath.h"

std::string moduleFile() {
  Dl_info info{};
  const auto* own = reinterpret_cast<const void*>(&moduleFile);  // an address inside the image
  if (dladdr(own, &info) == 0 || info.dli_fname == nullptr) return {};
  char path[PATH_MAX];
  return realpath(info.dli_fname, path) != nullptr ? path : std::string();
}
