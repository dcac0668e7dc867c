// Linux: the kernel's link to the running program.
#include "host/vst/executablepath.h"

#include <system_error>

std::filesystem::path executablePath() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored);
}
