// Runs the built widen.
#include "tests/host/program.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

#include "tests/support/signalwords.h"

namespace {

constexpr int kLongest = 30;  // s

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// value: 0 for none.
template <typename Resource>
void limit(Resource resource, long value) {
  if (value == 0) return;
  const auto most = static_cast<rlim_t>(value);
  const rlimit both{most, most};
  setrlimit(resource, &both);
}

}  // namespace

int startProgram(const std::filesystem::path& folder, const std::vector<std::string>& words,
                 const Surroundings& surroundings) {
  std::vector<std::string> all = {WIDEN_PROGRAM};
  all.insert(all.end(), words.begin(), words.end());
  std::vector<char*> pointers;
  pointers.reserve(all.size() + 1);
  for (std::string& word : all) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const std::filesystem::path out = folder.parent_path() / "out";
  const std::filesystem::path error = folder.parent_path() / "error";
  const int process = fork();
  if (process != 0) return process;
  // In the child: nothing but what leads to exec.
  if (chdir(folder.c_str()) != 0) _exit(100);
  const int outFile = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const int errorFile = open(error.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (dup2(outFile, STDOUT_FILENO) < 0 || dup2(errorFile, STDERR_FILENO) < 0) _exit(101);
  if (surroundings.standardInput >= 0 && dup2(surroundings.standardInput, STDIN_FILENO) < 0)
    _exit(103);
  if (surroundings.standardOutput == "closed") {
    close(STDOUT_FILENO);
    close(outFile);
    close(errorFile);
  } else if (!surroundings.standardOutput.empty()) {
    if (dup2(open(surroundings.standardOutput.c_str(), O_WRONLY), STDOUT_FILENO) < 0) _exit(104);
  }
  for (const auto& [name, value] : surroundings.environment) setenv(name.c_str(), value.c_str(), 1);
  limit(RLIMIT_FSIZE, surroundings.fileSizeLimit);
  limit(RLIMIT_NOFILE, surroundings.openFilesLimit);
  setenv("LSAN_OPTIONS", "print_suppressions=0:suppressions=" WIDEN_LEAKS, 1);
  alarm(kLongest);
  execv(WIDEN_PROGRAM, pointers.data());
  _exit(102);
}

Outcome waitForProgram(int process, const std::filesystem::path& folder) {
  int status = 0;
  rusage use{};
  wait4(process, &status, 0, &use);
  const std::filesystem::path out = folder.parent_path() / "out";
  const std::filesystem::path error = folder.parent_path() / "error";
  Outcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), contentOf(out),
                  inLinuxWords(contentOf(error)), use.ru_maxrss * WIDEN_MEMORY_UNIT / 1024};
  return outcome;
}

Outcome runProgram(const std::filesystem::path& folder, const std::vector<std::string>& words,
                   const Surroundings& surroundings) {
  return waitForProgram(startProgram(folder, words, surroundings), folder);
}

// The effect keeps preferences: the tests' own, empty at first.
ProgramTest::ProgramTest() {
  useOwnPreferences();
}

ProgramTest::~ProgramTest() {
  for (const int end : pipes) close(end);
}

int ProgramTest::pipeFrom(const std::filesystem::path& file) {
  int ends[2] = {-1, -1};
  EXPECT_EQ(pipe(ends), 0);
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  pipes.push_back(ends[0]);
  const std::string bytes = contentOf(file);
  if (fork() == 0) {
    close(ends[0]);
    alarm(kLongest);
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t count = write(ends[1], bytes.data() + done, bytes.size() - done);
      if (count <= 0) _exit(1);
      done += static_cast<std::size_t>(count);
    }
    _exit(0);
  }
  close(ends[1]);
  return ends[0];
}

std::string ProgramTest::butForNarrowing(const Outcome& outcome) {
  std::istringstream lines(outcome.error);
  std::string rest;
  for (std::string line; std::getline(lines, line);) {
    if (line.find(": is narrower than the input: ") == std::string::npos) rest += line + "\n";
  }
  return rest;
}

void ProgramTest::expectRefusal(const Outcome& outcome, int status, const std::string& text) {
  EXPECT_EQ(outcome.status, status) << outcome.error;
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << outcome.error;
  EXPECT_TRUE(outcome.error.starts_with("widen: ")) << outcome.error;
  EXPECT_NE(outcome.error.find(text), std::string::npos)
      << outcome.error << "does not contain: " << text;
}
