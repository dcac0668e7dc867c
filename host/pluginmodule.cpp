// A loaded plug-in binary.
#include "host/pluginmodule.h"

#include <dlfcn.h>

#include <algorithm>
#include <string>

#include "host/failure.h"

PluginModule::PluginModule(const std::filesystem::path& binary)
    : binaryPath(binary), library(dlopen(binary.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (library == nullptr) {
    std::string reason = dlerror();
    std::replace(reason.begin(), reason.end(), '\n', ' ');
    // The loader's text opens with the path itself.
    const std::string opening = binary.string() + ": ";
    if (reason.starts_with(opening)) reason.erase(0, opening.size());
    throw Failure(binary.string() + ": cannot be loaded (" + reason + ")");
  }
  entry = reinterpret_cast<EntryPoint>(dlsym(library, "VSTPluginMain"));
  if (entry == nullptr) {
    dlclose(library);
    throw Failure(binary.string() + ": not a VST 2.4 plug-in (exports no VSTPluginMain)");
  }
}

PluginModule::~PluginModule() {
  dlclose(library);
}
