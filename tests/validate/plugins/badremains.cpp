// Effects that leave something in the host's process when they are gone.
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class LeavesDescriptors : public SoundEffect {
 public:
  explicit LeavesDescriptors(audioMasterCallback callback) : SoundEffect(callback) {
    open("/dev/null", O_RDONLY | O_CLOEXEC);
  }
};
EFFECT_IN_FILE(leavesdescriptors, LeavesDescriptors);

// In the C library, so that it lives on when the module is gone.
class LeavesThreads : public SoundEffect {
 public:
  explicit LeavesThreads(audioMasterCallback callback) : SoundEffect(callback) {
    using Run = void* (*)(void*);
    const auto run = reinterpret_cast<Run>(dlsym(RTLD_DEFAULT, "pause"));
    pthread_t thread{};
    if (pthread_create(&thread, nullptr, run, nullptr) == 0) pthread_detach(thread);
  }
};
EFFECT_IN_FILE(leavesthreads, LeavesThreads);

class LeavesProcesses : public SoundEffect {
 public:
  explicit LeavesProcesses(audioMasterCallback callback) : SoundEffect(callback) {
    if (fork() == 0) _exit(0);  // and nobody waits for it
  }
};
EFFECT_IN_FILE(leavesprocesses, LeavesProcesses);

class LeavesMappings : public SoundEffect {
 public:
  explicit LeavesMappings(audioMasterCallback callback) : SoundEffect(callback) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    // One page without neighbours, or the kernel would make one stretch of it and the last.
    auto* pages =
        static_cast<char*>(mmap(nullptr, 3 * page, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (pages == MAP_FAILED) return;
    munmap(pages, page);
    munmap(pages + 2 * page, page);
  }
};
EFFECT_IN_FILE(leavesmappings, LeavesMappings);

class LeavesMemory : public SoundEffect {
 public:
  explicit LeavesMemory(audioMasterCallback callback) : SoundEffect(callback) {
    constexpr std::size_t kBytes = std::size_t{5} << 18;
    void* volatile memory = std::malloc(kBytes);  // volatile: else it may be left out
    if (memory != nullptr) std::memset(memory, 1, kBytes);
  }
};
EFFECT_IN_FILE(leavesmemory, LeavesMemory);

class StaysLoaded : public SoundEffect {
 public:
  explicit StaysLoaded(audioMasterCallback callback) : SoundEffect(callback) {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&marker), &info) != 0) dlopen(info.dli_fname, RTLD_LAZY);
  }

 private:
  static void marker() {}
};
EFFECT_IN_FILE(staysloaded, StaysLoaded);

}  // namespace
