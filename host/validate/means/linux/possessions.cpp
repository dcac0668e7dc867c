// Linux: what this process holds, from the kernel's files about it.
#include "host/validate/means/possessions.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string>
#include <system_error>

namespace {

int entriesIn(const char* folder) {
  std::error_code ignored;
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    static_cast<void>(entry);
    ++count;
  }
  return count;
}

int linesOf(const char* file) {
  std::ifstream in(file);
  int count = 0;
  for (std::string line; std::getline(in, line);) ++count;
  return count;
}

bool hasChild() {
  siginfo_t child{};
  return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
}

}  // namespace

std::size_t residentBytes() {
  std::ifstream in("/proc/self/statm");
  std::size_t total = 0;
  std::size_t resident = 0;
  in >> total >> resident;  // pages
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::optional<Possessions> possessions() {
  return Possessions{entriesIn("/proc/self/task"), entriesIn("/proc/self/fd"), hasChild(),
                     linesOf("/proc/self/maps"), residentBytes()};
}

bool isMapped(const std::filesystem::path& binary) {
  std::error_code ignored;
  const std::string path = std::filesystem::canonical(binary, ignored).string();
  std::ifstream in("/proc/self/maps");
  for (std::string line; std::getline(in, line);) {
    if (line.ends_with(path)) return true;
  }
  return false;
}

bool asksToStay(const std::filesystem::path& binary) {
  void* library = dlopen(binary.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  if (library == nullptr) return false;
  bool asks = false;
  const link_map* map = nullptr;
  if (dlinfo(library, RTLD_DI_LINKMAP, &map) == 0) {
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry)
      asks |= entry->d_tag == DT_FLAGS_1 && (entry->d_un.d_val & DF_1_NODELETE) != 0;
  }
  dlclose(library);
  return asks;
}
