// A desktop whose dialog programs are scripts: they write down how they were called and answer what
// the test says.
#pragma once

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/temporaryfolder.h"

class FakeDesktop {
 public:
  // body: what the program does once it has written down its arguments; "$calls" is the number of
  // its calls so far.
  void install(const std::string& name, const std::string& body) {
    const std::string record = folder / name;
    writeProgram(programs() + "/" + name,
                 "calls=$(/usr/bin/find " + folder.path + " -name '" + name +
                     ".call*' | /usr/bin/wc -l)\n" + "calls=$((calls + 1))\n" + "/usr/bin/env > " +
                     record + ".environment\n" + "echo $$ > " + record + ".pid\n" +
                     "for argument; do printf '%s\\0' \"$argument\"; done > " + record +
                     ".arguments\n" +
                     // with one name from the first moment on: who waits for it reads it at once
                     "/bin/cp " + record + ".arguments " + record + ".new\n" + "/bin/mv " + record +
                     ".new " + record + ".call$calls\n" + body);
  }

  // The arguments of one of the calls, 1 the first; none if it was not called so often.
  std::vector<std::string> argumentsOf(const std::string& name, int call = 1) const {
    std::vector<std::string> arguments;
    std::istringstream text(contentOf(folder / (name + ".call" + std::to_string(call))));
    for (std::string argument; std::getline(text, argument, '\0');) arguments.push_back(argument);
    return arguments;
  }
  bool wasCalled(const std::string& name, int call = 1) const {
    return std::filesystem::exists(folder / (name + ".call" + std::to_string(call)));
  }
  // Waits until the program has written down its call.
  bool isCalled(const std::string& name, int call = 1) const {
    for (int tries = 0; tries < 10000; ++tries) {
      if (wasCalled(name, call)) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
  }
  std::string environmentOf(const std::string& name) const {
    return contentOf(folder / (name + ".environment"));
  }
  int pidOf(const std::string& name) const {
    return std::stoi(contentOf(folder / (name + ".pid")));
  }

  std::string programs() const { return folder / "programs"; }

  TemporaryFolder folder;

 private:
  const bool made = std::filesystem::create_directory(folder / "programs");
  ScopedVariable path{"PATH", folder / "programs"};

 public:
  ScopedVariable display{"DISPLAY", ":17"};
  ScopedVariable wayland{"WAYLAND_DISPLAY", nullptr};
  ScopedVariable kind{"XDG_CURRENT_DESKTOP", nullptr};
  // no portal of this machine's
  ScopedVariable bus{"DBUS_SESSION_BUS_ADDRESS", nullptr};
  ScopedVariable running{"XDG_RUNTIME_DIR", nullptr};
};
