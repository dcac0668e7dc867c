// The plug-in's own image by the dynamic loader's list of images.
#include "platform/modulefile.h"

#include <dlfcn.h>
#include <link.h>

#include <cstdlib>

void findModuleFile(char (&path)[PATH_MAX]) noexcept {
  Dl_info info{};
  link_map* image = nullptr;
  const auto* own = reinterpret_cast<const void*>(&findModuleFile);  // an address inside the image
  if (dladdr1(own, &info, reinterpret_cast<void**>(&image), RTLD_DL_LINKMAP) == 0 ||
      image == nullptr)
    return;
  // The program itself has no name in the list, and only the name that it was called by elsewhere.
  const char* name = image->l_name[0] != 0 ? image->l_name : "/proc/self/exe";
  if (realpath(name, path) == nullptr) path[0] = 0;
}
