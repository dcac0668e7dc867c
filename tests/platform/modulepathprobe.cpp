// A module that tells where it believes to be; built from the same source as the plug-in.
#include <cstring>

#include "platform/modulepath.h"

extern "C" __attribute__((visibility("default"))) void whereAmI(char* folder, char* resources) {
  std::strcpy(folder, moduleFolder().c_str());
  std::strcpy(resources, resourcesFolder().c_str());
}
