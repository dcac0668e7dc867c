// macOS: the dynamic loader's note of the running program.
#include "host/vst/executablepath.h"

#include <mach-o/dyld.h>

#include <string>
#include <system_error>

std::filesystem::path executablePath() {
  std::uint32_t size = 0;
  _NSGetExecutablePath(nullptr, &size);  // returns the size that it needs
  std::string path(size, '\0');
  if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
  std::error_code ignored;
  return std::filesystem::canonical(path.c_str(), ignored);
}
