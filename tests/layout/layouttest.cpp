// The layout of this source tree.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/layout/layoutchecker.h"

namespace {

TEST(Layout, HasNoViolations) {
  for (const std::string& violation : layoutViolations(TRELVAN_SOURCES)) ADD_FAILURE() << violation;
}

// An empty list of files would have no violations either.
TEST(Layout, IsReadWhole) {
  const std::vector<std::string> paths = sourcePaths(TRELVAN_SOURCES);
  for (const char* path : {"plugin/vst24.h", "effect/trelvan.cpp", "presetsystem/presetimage.h", "editor/adeditor.cpp",
                           "platform/xplat.h", "tests/layout/layouttest.cpp"}) {
    EXPECT_NE(std::find(paths.begin(), paths.end(), path), paths.end()) << path;
  }
}

}  // namespace
