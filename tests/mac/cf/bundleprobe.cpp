// A module that is loaded from inside a bundle and tells what it has found of itself.
#include <cstring>

#include "cfobject.h"
#include "editor/base/mac/bundlelookup.h"
#include "platform/modulepath.h"

// Returns the references that are left over.
extern "C" __attribute__((visibility("default"))) long probe(char* bundle, char* folder,
                                                             char* resources) {
  InitMachOLibrary();
  std::strcpy(bundle, gBundleRef != nullptr ? cfdouble::get(gBundleRef)->path.c_str() : "(none)");
  std::strcpy(folder, moduleFolder().c_str());
  std::strcpy(resources, resourcesFolder().c_str());
  ExitMachOLibrary();
  return cfdouble::references();
}
