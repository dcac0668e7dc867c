// What each test of the window has: a home of its own, and dialog programs that do what
// the test says.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <filesystem>
#include <string>
#include <vector>

#include "places.h"
#include "tests/support/temporaryfolder.h"
#include "windowhost.h"

// A script in PATH: writes down its arguments, waits for the test's answer, prints it and ends with
// its status.
class FakeProgram {
 public:
  FakeProgram(std::string binFolder, const std::string& name)
      : base(std::move(binFolder) + "/" + name) {
    writeProgram(base, "base=" + base + R"(
echo $$ >"$base.pid"
for argument; do printf '%s\n' "$argument"; done >"$base.asking.$$"
mv "$base.asking.$$" "$base.asked"
while [ ! -e "$base.status" ]; do [ -e "$base" ] || exit 9; sleep 0.01; done
cat "$base.answer"
read status <"$base.status"
rm -f "$base.status" "$base.answer"
exit "$status")");
  }

  bool wasAsked() const { return std::filesystem::exists(base + ".asked"); }

  // The arguments of the last start, which is forgotten.
  std::vector<std::string> takeArguments() {
    std::vector<std::string> arguments;
    std::istringstream lines(contentOf(base + ".asked"));
    for (std::string line; std::getline(lines, line);) arguments.push_back(line);
    std::filesystem::remove(base + ".asked");
    return arguments;
  }

  void answer(const std::string& text, int status = 0) {
    writeFile(base + ".answer", text);
    writeFile(base + ".status.new", std::to_string(status) + "\n");
    std::filesystem::rename(base + ".status.new", base + ".status");
  }
  bool isRunning() const {
    const std::string pid = contentOf(base + ".pid");
    return !pid.empty() && kill(std::stoi(pid), 0) == 0;
  }

 private:
  std::string base;
};

class WindowTest : public ::testing::Test {
 protected:
  WindowTest() {
    for (const char* name : {"home", "config", "bin", "files"})
      std::filesystem::create_directory(folder / name);
    // What the scripts need, and no dialog program of this machine.
    for (const std::string tool : {"cat", "mv", "rm", "sleep"}) {
      std::filesystem::create_symlink("/bin/" + tool, folder / ("bin/" + tool));
    }
  }

  // The user's stored values, byte for byte; empty where nothing was ever stored.
  std::string preferences() const { return contentOf(folder / "config/orv/trelvan.conf"); }

  TemporaryFolder folder;
  ScopedVariable home{"HOME", folder / "home"};
  ScopedVariable config{"XDG_CONFIG_HOME", folder / "config"};
  ScopedVariable path{"PATH", folder / "bin"};
  ScopedVariable desktop{"XDG_CURRENT_DESKTOP", nullptr};
  // no portal of this machine's
  ScopedVariable bus{"DBUS_SESSION_BUS_ADDRESS", nullptr};
  ScopedVariable running{"XDG_RUNTIME_DIR", nullptr};
};
