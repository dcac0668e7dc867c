// Work in a process of its own, which may end there as it likes.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <functional>

// Returns the process. It fails where an expectation of the work does.
inline pid_t inProcess(const std::function<void()>& work) {
  const pid_t process = fork();
  if (process == 0) {
    work();
    _exit(testing::Test::HasFailure() ? 1 : 0);
  }
  return process;
}

inline bool succeeded(pid_t process) {
  int status = 0;
  return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Nobody may write a folder of root's, and root may write every folder: so the work is done as
// nobody where we are root.
constexpr uid_t kNobody = 65534;
inline void asNobody(const std::function<void()>& work) {
  ASSERT_TRUE(succeeded(inProcess([&] {
    if (getuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(2);
    work();
  })));
}

// How a scenario ends in which memory runs out. terminated: by std::terminate, as the toolkit ends
// the process where an allocation fails inside its factory, which is noexcept.
enum class End { refused, done, terminated, wrong };

inline End wrong(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  return End::wrong;
}

inline End endOf(const std::function<End()>& scenario) {
  const pid_t process = fork();
  if (process == 0) {
    std::set_terminate([] { _exit(static_cast<int>(End::terminated)); });
    End end = End::wrong;
    try {
      end = scenario();
    } catch (...) {
      wrong("something was thrown at the host");
    }
    _exit(static_cast<int>(end));
  }
  int status = 0;
  if (waitpid(process, &status, 0) != process) return wrong("the process is lost");
  if (!WIFEXITED(status)) return wrong("the process was ended by a signal");
  return static_cast<End>(WEXITSTATUS(status));
}

// Every allocation fails in a scenario, or of `step` one, until one ends as done. Returns how many
// were refused.
inline int failEachOwnProcess(const std::function<End(long succeeding)>& scenario, long step = 1) {
  int refused = 0;
  for (long succeeding = 0;; succeeding += step) {
    const End end = endOf([&] { return scenario(succeeding); });
    EXPECT_NE(end, End::wrong) << "without memory after " << succeeding << " allocations";
    if (end == End::wrong || end == End::done) return refused;
    if (end == End::refused) ++refused;
  }
}
