// The dynamic loader's image list, on Linux's own or as a test wants it.
#include "dyld.h"

#include <link.h>
#include <mach-o/dyld.h>

#include <cstdint>
#include <cstring>

extern "C" const char __dso_handle;  // one an image here too, though not at the header's address

namespace {

// never ended: with a destructor the name below would be taken
auto& shown = *new std::vector<dylddouble::Image>;
bool process = true;
auto& executable = *new std::string;

int visit(dl_phdr_info* info, std::size_t, void* data) {
  auto& images = *static_cast<std::vector<dylddouble::Image>*>(data);
  const auto own = reinterpret_cast<std::uintptr_t>(&__dso_handle);
  const void* header = reinterpret_cast<const void*>(info->dlpi_addr);
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const auto& segment = info->dlpi_phdr[i];
    const std::uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
    if (segment.p_type == PT_LOAD && own - begin < segment.p_memsz) header = &__dso_handle;
  }
  images.push_back({header, info->dlpi_name});
  return 0;
}

std::vector<dylddouble::Image> images() {
  if (!process) return shown;
  std::vector<dylddouble::Image> loaded;
  dl_iterate_phdr(visit, &loaded);
  return loaded;
}

}  // namespace

namespace dylddouble {

void show(const std::vector<Image>& wanted) {
  shown = wanted;
  process = false;
}

void showProcess() {
  process = true;
}

void showExecutable(const std::string& path) {
  executable = path;
}

const void* ownHeader() {
  return &__dso_handle;
}

}  // namespace dylddouble

uint32_t _dyld_image_count() {
  return static_cast<uint32_t>(images().size());
}

const mach_header* _dyld_get_image_header(uint32_t index) {
  return static_cast<const mach_header*>(images().at(index).header);
}

const char* _dyld_get_image_name(uint32_t index) {
  return images().at(index).name;
}

// As Apple's: the size that is too small is put right.
int _NSGetExecutablePath(char* buffer, uint32_t* size) {
  const auto needed = static_cast<uint32_t>(executable.size() + 1);
  if (*size < needed) {
    *size = needed;
    return -1;
  }
  std::memcpy(buffer, executable.c_str(), needed);
  return 0;
}
