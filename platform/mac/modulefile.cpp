// The plug-in's own image by the dynamic loader.
#include "platform/modulefile.h"

#include <dlfcn.h>

#include <cstdlib>

void findModuleFile(char (&path)[PATH_MAX]) noexcept {
  Dl_info info{};
  const auto* own = reinterpret_cast<const void*>(&findModuleFile);  // an address inside the image
  if (dladdr(own, &info) == 0 || info.dli_fname == nullptr) return;
  if (realpath(info.dli_fname, path) == nullptr) path[0] = 0;
}
