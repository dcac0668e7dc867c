// Watches a thread for memory that it asks for or gives back, and for locks that it takes.
#include "host/validate/means/memorywatch.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>

#include "host/base/text.h"
#include "host/validate/means/memoryshortage.h"

namespace {

struct Watched {
  bool on;
  std::size_t allocations;
  std::size_t releases;
  std::size_t locks;
  const void* first;  // caller
};

// In the program itself and known when it is loaded: reached without a call, which would ask for
// memory in its turn.
__attribute__((tls_model("initial-exec"))) constinit thread_local Watched watched{};

void note(std::size_t& count, const void* caller) noexcept {
  ++count;
  if (watched.first == nullptr) watched.first = caller;
}

}  // namespace

MemoryWatch::MemoryWatch() {
  watched = {true, 0, 0, 0, nullptr};
}

MemoryWatch::~MemoryWatch() {
  watched.on = false;
}

bool MemoryWatch::works() {
  const MemoryWatch watch;
  // Not by its name: the compiler knows malloc, and that it changes none of our counts.
  void* (*volatile ask)(std::size_t) = std::malloc;
  std::free(ask(1));
  return allocations() == 1;
}

std::size_t MemoryWatch::allocations() {
  return watched.allocations;
}

std::size_t MemoryWatch::releases() {
  return watched.releases;
}

std::size_t MemoryWatch::locks() {
  return watched.locks;
}

std::string MemoryWatch::culprit() {
  const void* caller = watched.first;
  if (caller == nullptr) return {};
  Dl_info info{};
  if (dladdr(caller, &info) == 0 || info.dli_fname == nullptr) return "code of no file";
  const auto offset = static_cast<const char*>(caller) - static_cast<const char*>(info.dli_fbase);
  return formatted("%s+0x%tx", std::filesystem::path(info.dli_fname).filename().c_str(), offset);
}

bool MemoryWatch::allowsAllocation(const void* caller) noexcept {
  if (watched.on) note(watched.allocations, caller);
  return MemoryShortage::allows(caller);
}

void MemoryWatch::noteRelease(const void* caller) noexcept {
  if (watched.on) note(watched.releases, caller);
}

void MemoryWatch::noteLock(const void* caller) noexcept {
  if (watched.on) note(watched.locks, caller);
}
