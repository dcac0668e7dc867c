// A loaded plug-in binary.
#include "host/vst/pluginmodule.h"

#include <dlfcn.h>

#include <algorithm>
#include <string>
#include <system_error>

#include "host/base/failure.h"

namespace {

// Effects older than version 2.4 of the interface export `main`, a name that a library they link to
// may have as well.
void* ownMain(void* library, const std::filesystem::path& binary) {
  void* symbol = dlsym(library, "main");
  Dl_info info{};
  std::error_code error;
  const bool own = symbol != nullptr && dladdr(symbol, &info) != 0 && info.dli_fname != nullptr &&
                   std::filesystem::equivalent(info.dli_fname, binary, error);
  return own ? symbol : nullptr;
}

}  // namespace

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
  void* symbol = dlsym(library, "VSTPluginMain");
  if (symbol == nullptr) symbol = ownMain(library, binary);
  entry = reinterpret_cast<EntryPoint>(symbol);
  if (entry == nullptr) {
    dlclose(library);
    throw Failure(binary.string() +
                  ": not a VST 2 plug-in (exports neither VSTPluginMain nor main)");
  }
}

PluginModule::~PluginModule() {
  dlclose(library);
}
