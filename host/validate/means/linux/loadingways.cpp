// Linux: at once or as it goes, with its own libraries first, or apart from the host's.
#include "host/validate/means/loadingways.h"

#include <dlfcn.h>

#include <array>

#include "host/validate/means/sanitized.h"

namespace {

void* loadAtOnce(const std::filesystem::path& binary) {
  return dlopen(binary.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* loadAsItGoes(const std::filesystem::path& binary) {
  return dlopen(binary.c_str(), RTLD_LAZY | RTLD_LOCAL);
}

void* loadOwnLibrariesFirst(const std::filesystem::path& binary) {
  return dlopen(binary.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
}

constexpr std::array kWays{
    LoadingWay{"at once (RTLD_NOW)", loadAtOnce},
    LoadingWay{"as it goes (RTLD_LAZY)", loadAsItGoes},
    LoadingWay{"with its own libraries first (RTLD_DEEPBIND)", loadOwnLibrariesFirst},
};

}  // namespace

std::span<const LoadingWay> loadingWays() {
  // A sanitizer stands in front of functions that RTLD_DEEPBIND looks for elsewhere.
  return kSanitized ? std::span(kWays).first(2) : std::span(kWays);
}

std::optional<std::string> complaintAlone(const std::filesystem::path& binary) {
  if (kSanitized) return std::nullopt;
  const void* library = dlmopen(LM_ID_NEWLM, binary.c_str(), RTLD_NOW | RTLD_LOCAL);
  return library == nullptr ? dlerror() : std::string();
}
