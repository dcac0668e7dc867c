// A stack for the signal handlers of a thread.
#include "host/base/crashstack.h"

#include <csignal>
#include <cstddef>
#include <vector>

namespace {

constexpr std::size_t kBytes = 1 << 16;  // several times what a handler's frame takes

class CrashStack {
 public:
  CrashStack() {
    stack_t now{};
    if (sigaltstack(nullptr, &now) != 0 || (now.ss_flags & SS_DISABLE) == 0) return;
    memory.resize(kBytes);
    stack_t ours{};
    ours.ss_sp = memory.data();
    ours.ss_size = memory.size();
    sigaltstack(&ours, nullptr);
  }
  ~CrashStack() {
    if (memory.empty()) return;
    stack_t none{};
    none.ss_flags = SS_DISABLE;
    none.ss_size = kBytes;  // one system looks at it all the same
    sigaltstack(&none, nullptr);
  }
  CrashStack(const CrashStack&) = delete;
  CrashStack& operator=(const CrashStack&) = delete;

 private:
  std::vector<char> memory;  // empty: the thread had one
};

}  // namespace

void provideCrashStack() {
  static thread_local const CrashStack stack;
}
