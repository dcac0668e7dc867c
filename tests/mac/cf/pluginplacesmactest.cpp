// How plug-ins lie on macOS.
#include "host/vst/pluginplaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/vst/pluginpath.h"
#include "host/vst/pluginsearch.h"
#include "tests/support/temporaryfolder.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

// As the build makes it: the binary has the bundle's name and no ending.
TEST(PluginPlacesMac, ABundlesBinaryHasItsName) {
  const TemporaryFolder folder;
  const fs::path inside = fs::path(folder.path) / "Wide.vst/Contents/MacOS";
  fs::create_directories(inside);
  writeFile(inside / "Wide", "");
  EXPECT_EQ(pluginBinary(inside.parent_path().parent_path()), inside / "Wide");
}

TEST(PluginPlacesMac, FoldersAreThePersonsAndEverybodys) {
  const ScopedVariable home("HOME", "/Users/me");
  const ScopedVariable named("VST_PATH", nullptr);
  EXPECT_THAT(pluginFolders(),
              ElementsAre("/Users/me/Library/Audio/Plug-Ins/VST", "/Library/Audio/Plug-Ins/VST"));
}

}  // namespace
