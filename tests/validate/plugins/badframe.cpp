// Effects that try the validator itself: they hang, end its process, leave others behind.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/validate/plugins/soundeffect.h"

namespace {

// Into the file that the test names: who this process is.
void tellProcess() {
  const char* path = std::getenv("VALIDATE_TOLD_PROCESS");
  if (path == nullptr) return;
  if (std::FILE* file = std::fopen(path, "w")) {
    std::fprintf(file, "%d", static_cast<int>(getpid()));
    std::fclose(file);
  }
}

class HangsOnOpen : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effOpen) {
      tellProcess();
      while (true) pause();
    }
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
};
EFFECT_IN_FILE(hangsonopen, HangsOnOpen);

class ExitsOnOpen : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effOpen) std::exit(3);
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
};
EFFECT_IN_FILE(exitsonopen, ExitsOnOpen);

// A process in a session of its own, as servers that are started on demand are.
class StartsAServer : public SoundEffect {
 public:
  explicit StartsAServer(audioMasterCallback callback) : SoundEffect(callback) {
    const pid_t child = fork();
    if (child != 0) {
      waitpid(child, nullptr, 0);  // from then on there is a server
      return;
    }
    setsid();
    if (fork() == 0) {
      tellProcess();
      sleep(60);  // s, longer than a test waits
    }
    _exit(0);
  }
};
EFFECT_IN_FILE(startsaserver, StartsAServer);

// Once in a process: finds what another process has left in its home.
class TrustsItsHome : public SoundEffect {
 public:
  explicit TrustsItsHome(audioMasterCallback callback) : SoundEffect(callback) {
    static bool isKnown = false;
    if (isKnown) return;
    isKnown = true;
    const std::string settings = std::string(std::getenv("HOME")) + "/settings";
    const int file = open(settings.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (file < 0) std::abort();
    close(file);
  }
};
EFFECT_IN_FILE(trustsitshome, TrustsItsHome);

}  // namespace
