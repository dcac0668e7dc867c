// macOS: at once or as it goes, private to the host.
#include "host/validate/means/loadingways.h"

#include <dlfcn.h>

#include <array>

std::span<const LoadingWay> loadingWays() {
  static constexpr std::array kWays{
      LoadingWay{"at once (RTLD_NOW)",
                 [](const std::filesystem::path& binary) {
                   return dlopen(binary.c_str(), RTLD_NOW | RTLD_LOCAL);
                 }},
      LoadingWay{"as it goes (RTLD_LAZY)",
                 [](const std::filesystem::path& binary) {
                   return dlopen(binary.c_str(), RTLD_LAZY | RTLD_LOCAL);
                 }},
  };
  return kWays;
}

std::optional<std::string> complaintAlone(const std::filesystem::path&) {
  return std::nullopt;
}
