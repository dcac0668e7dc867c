// Forbids a thread to call the system: by a filter of the kernel's, which raises SIGSYS.
#include "host/validate/means/systemcalltrap.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>

namespace {

void (*whenCalled)(int) = nullptr;

void handle(int, siginfo_t* info, void*) {
  whenCalled(info->si_syscall);
}

struct Named {
  int number;
  const char* name;
};
// What has been seen in audio threads, and its like.
constexpr std::array kNames{
    Named{SYS_read, "read"},
    Named{SYS_write, "write"},
    Named{SYS_openat, "openat"},
    Named{SYS_close, "close"},
    Named{SYS_mmap, "mmap"},
    Named{SYS_munmap, "munmap"},
    Named{SYS_mremap, "mremap"},
    Named{SYS_mprotect, "mprotect"},
    Named{SYS_madvise, "madvise"},
    Named{SYS_brk, "brk"},
    Named{SYS_futex, "futex"},
    Named{SYS_sched_yield, "sched_yield"},
    Named{SYS_nanosleep, "nanosleep"},
    Named{SYS_clock_nanosleep, "clock_nanosleep"},
    Named{SYS_clock_gettime, "clock_gettime"},
    Named{SYS_gettimeofday, "gettimeofday"},
    Named{SYS_getrandom, "getrandom"},
    Named{SYS_getpid, "getpid"},
    Named{SYS_gettid, "gettid"},
    Named{SYS_umask, "umask"},
    Named{SYS_ioctl, "ioctl"},
    Named{SYS_sendto, "sendto"},
    Named{SYS_sendmsg, "sendmsg"},
    Named{SYS_recvmsg, "recvmsg"},
    Named{SYS_writev, "writev"},
    Named{SYS_ppoll, "ppoll"},
    Named{SYS_clone, "clone"},
    Named{SYS_clone3, "clone3"},
    Named{SYS_rt_sigaction, "rt_sigaction"},
    Named{SYS_rt_sigprocmask, "rt_sigprocmask"},
};

constexpr sock_filter allow(std::uint32_t number) {
  return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1);
}

}  // namespace

bool trapSystemCalls(void (*called)(int number)) {
  whenCalled = called;
  struct sigaction action {};
  action.sa_sigaction = handle;
  action.sa_flags = SA_SIGINFO;
  if (sigaction(SIGSYS, &action, nullptr) != 0) return false;
  std::array filter{
      sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      allow(SYS_exit_group),
      sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
      sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRAP),
  };
  sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return false;
  return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

const char* systemCallName(int number) {
  for (const Named& named : kNames) {
    if (named.number == number) return named.name;
  }
  return "a system call";
}

long pagesTouched() {
  rusage usage{};
  return getrusage(RUSAGE_THREAD, &usage) == 0 ? usage.ru_minflt : -1;
}
