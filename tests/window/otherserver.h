// One more X server, besides the one that the test program runs on.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

// Runs until its end. screens: of each the size and depth, "1024x768x24".
class OtherServer {
 public:
  explicit OtherServer(std::initializer_list<const char*> screens) {
    constexpr int kTries = 5;  // numbers: one may be taken
    for (int tries = 0; process == 0; ++tries) {
      if (tries == kTries) throw std::runtime_error("the X server did not start");
      start(nextNumber(), screens);
    }
  }
  ~OtherServer() { end(); }
  OtherServer(const OtherServer&) = delete;
  OtherServer& operator=(const OtherServer&) = delete;

  std::string display(int screen = 0) const {
    return ':' + std::to_string(number) + '.' + std::to_string(screen);
  }

  void end() {
    if (process <= 0) return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    process = 0;
    unlink(("/tmp/.X11-unix/X" + std::to_string(number)).c_str());
  }

 private:
  // Far from those that servers choose for themselves: when this one has ended, nobody else's is
  // where it was.
  static int nextNumber() {
    constexpr int kFirst = 10'000, kCount = 40'000, kAProgram = 16;
    static int starts = 0;
    return kFirst + (getpid() * kAProgram + starts++) % kCount;
  }

  void start(int atNumber, std::initializer_list<const char*> screens) {
    number = atNumber;
    std::vector<std::string> words = {
        "Xvfb", ':' + std::to_string(number), "-displayfd", "3", "-nolisten", "tcp", "-noreset"};
    int screenNumber = 0;
    for (const char* screen : screens) {
      for (const std::string& word :
           {std::string("-screen"), std::to_string(screenNumber), std::string(screen)})
        words.push_back(word);
      ++screenNumber;
    }
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    int ready[2] = {};
    if (pipe2(ready, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process = fork();
    if (process == 0) {
      const int null = open("/dev/null", O_RDWR);
      dup2(null, 1);
      dup2(null, 2);
      dup2(ready[1], 3);
      if (ready[1] == 3) fcntl(3, F_SETFD, 0);
      prctl(PR_SET_PDEATHSIG, SIGKILL);  // of a test that breaks off nothing stays
      setenv("PATH", kPath.c_str(), 1);  // the test has its own
      execvp(arguments[0], arguments.data());
      _exit(127);
    }
    close(ready[1]);
    // It writes its number when it is ready, and a line's end after it.
    char letter = 0;
    while (read(ready[0], &letter, 1) == 1 && letter != '\n') {
    }
    close(ready[0]);
    if (letter == '\n') return;
    waitpid(process, nullptr, 0);
    process = 0;
  }

  // That of the program, or of the test that started it.
  static inline const std::string kPath = std::getenv("PATH") + std::string(":/usr/bin:/bin");

  int number = 0;
  pid_t process = 0;
};
