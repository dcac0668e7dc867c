// The shell command that opens the manual, with a program "open" of the test's own.
#include "platform/manualopener.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "platform/modulepath.h"

namespace {

namespace fs = std::filesystem;

class OpenManualMac : public testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all(place);
    fs::create_directories(place / "bin");
    fs::create_directories(place / "home");
    // Notes its arguments, one a line, and succeeds for files that are there.
    std::ofstream(place / "bin/open") << "#!/bin/sh\nfor a; do echo \"$a\" >>"
                                      << (place / "log").string() << "; done\n[ -f \"$1\" ]\n";
    chmod((place / "bin/open").c_str(), 0755);
    path = std::getenv("PATH");
    setenv("PATH", ((place / "bin").string() + ":" + path).c_str(), 1);
    setenv("HOME", (place / "home").c_str(), 1);
  }
  void TearDown() override { setenv("PATH", path.c_str(), 1); }

  std::string log() const {
    std::stringstream text;
    text << std::ifstream(place / "log").rdbuf();
    return text.str();
  }

  const fs::path place = fs::current_path() / "openmanual";
  const fs::path users = place / "home" / kManualPath;
  std::string path;
};

TEST_F(OpenManualMac, OpensTheUsersCopyAsOneFile) {
  fs::create_directories(users.parent_path());
  std::ofstream(users) << "manual";
  ManualOpener opener;
  EXPECT_EQ(opener.poll(), ManualOpener::State::none);
  opener.start();
  EXPECT_EQ(opener.poll(), ManualOpener::State::opened);
  EXPECT_EQ(log(), users.string() + "\n");
}

TEST_F(OpenManualMac, OpensTheBundlesCopyWhereTheUserHasNone) {
  const fs::path bundles = resourcesFolder() + fs::path(kManualPath).filename().string();
  std::ofstream(bundles) << "manual";
  ManualOpener opener;
  opener.start();
  fs::remove(bundles);
  EXPECT_EQ(opener.poll(), ManualOpener::State::opened);
  EXPECT_EQ(log(), users.string() + "\n" + bundles.string() + "\n");
}

TEST_F(OpenManualMac, FailsWhereThereIsNoManual) {
  ManualOpener opener;
  opener.start();
  EXPECT_EQ(opener.poll(), ManualOpener::State::failed);
}

}  // namespace
