// The layout checker on small trees with planted violations.
#include "tests/layout/layoutchecker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "tests/layout/roomrules.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

// A tree of its own for each test; every file opens properly unless a test writes it whole.
class LayoutChecker : public testing::Test {
 protected:
  void SetUp() override {
    const char* const name = testing::UnitTest::GetInstance()->current_test_info()->name();
    root = fs::temp_directory_path() / ("trelvan-layout-" + std::to_string(getpid()) + "-" + name);
    fs::create_directories(root);
  }
  void TearDown() override { fs::remove_all(root); }

  void whole(const std::string& path, const std::string& content) {
    fs::create_directories((root / path).parent_path());
    std::ofstream(root / path) << content;
  }
  void file(const std::string& path, const std::vector<std::string>& includes = {}) {
    std::string content = "// A file.\n";
    for (const std::string& include : includes) content += "#include \"" + include + "\"\n";
    whole(path, content);
  }
  std::vector<std::string> violations() { return layoutViolations(root); }

  fs::path root;
};

TEST_F(LayoutChecker, FindsNothingInATreeInOrder) {
  file("platform/relaxed.h");
  file("plugin/vst24.h");
  file("plugin/audioeffect.h", {"plugin/vst24.h", "platform/relaxed.h"});
  file("effect/acombprogram.h", {"platform/relaxed.h"});
  file("presetsystem/presetimage.h", {"effect/acombprogram.h"});
  file("presetsystem/cpresetsystemeffect.h", {"plugin/audioeffect.h", "presetsystem/presetimage.h"});
  file("effect/trelvan.h", {"presetsystem/cpresetsystemeffect.h"});
  file("effect/trelvan.cpp", {"effect/trelvan.h", "editor/adeditor.h"});
  file("effect/trelvanparameters.cpp", {"effect/trelvan.h", "editor/aeffguieditor.h"});
  file("editor/aeffguieditor.h", {"vstgui.h", "lib/events.h", "plugin/vst24.h"});
  file("presetsystem/cpresetsystemeditor.h", {"editor/aeffguieditor.h"});
  file("editor/adeditor.h", {"presetsystem/cpresetsystemeditor.h"});
  file("editor/adeditor.cpp", {"editor/adeditor.h", "effect/trelvan.h"});
  file("editor/adeditorcontrols.cpp", {"effect/trelvan.h"});
  file("host/main.cpp", {"plugin/vst24.h", "presetsystem/presetimage.h"});
  file("tests/effect/trelvantest.cpp", {"effect/trelvan.h", "vstgui.h", "host/main.cpp"});
  EXPECT_THAT(violations(), IsEmpty());
}

TEST_F(LayoutChecker, SeesEveryBorderThatIsCrossed) {
  for (const char* target : {"plugin/vst24.h", "plugin/audioeffect.h", "platform/xplat.h", "effect/glide.h",
                             "effect/trelvan.h", "presetsystem/cpresetsystemeditor.h", "presetsystem/presetimage.h",
                             "editor/myframe.h", "editor/adeditor.h", "host/values.h"}) {
    file(target);
  }
  const std::pair<const char*, const char*> crossings[] = {
      {"plugin/a.cpp", "platform/xplat.h"},
      {"plugin/a.cpp", "effect/trelvan.h"},
      {"plugin/a.cpp", "vstgui.h"},
      {"effect/a.cpp", "editor/adeditor.h"},
      {"effect/a.cpp", "editor/myframe.h"},
      {"effect/a.cpp", "presetsystem/cpresetsystemeditor.h"},
      {"effect/a.cpp", "lib/events.h"},
      {"presetsystem/a.cpp", "effect/trelvan.h"},
      {"presetsystem/a.cpp", "effect/glide.h"},
      {"presetsystem/a.cpp", "editor/adeditor.h"},
      {"presetsystem/a.cpp", "vstgui.h"},
      {"editor/a.cpp", "effect/trelvan.h"},
      {"editor/a.cpp", "effect/glide.h"},
      {"editor/adeditor.h", "effect/trelvan.h"},
      {"platform/a.cpp", "plugin/vst24.h"},
      {"platform/a.cpp", "vstgui.h"},
      {"host/a.cpp", "plugin/audioeffect.h"},
      {"host/a.cpp", "effect/trelvan.h"},
      {"host/a.cpp", "platform/xplat.h"},
      {"host/a.cpp", "vstgui.h"},
      {"plugin/a.cpp", "host/values.h"},
  };
  for (const auto& [from, to] : crossings) {
    file(from, {to});
    EXPECT_THAT(violations(), ElementsAre(std::string(from) + ":2: may not include " + to));
    if (fs::path(from).stem() == "a") {
      fs::remove(root / from);
    } else {
      file(from);
    }
  }
}

TEST_F(LayoutChecker, LetsOneFileDoWhatItsRoomMayNot) {
  file("editor/adeditor.h");
  file("effect/trelvan.cpp", {"editor/adeditor.h"});
  file("effect/trelvanprocess.cpp", {"editor/adeditor.h"});
  EXPECT_THAT(violations(), ElementsAre("effect/trelvanprocess.cpp:2: may not include editor/adeditor.h"));
}

TEST_F(LayoutChecker, SeesABorderThatIsCrossedInAngleBracketsOrBesideTheFile) {
  file("effect/trelvan.h");
  whole("platform/linux/a.cpp", "// A file.\n#include <effect/trelvan.h>\n  #  import \"../../effect/trelvan.h\"\n");
  EXPECT_THAT(violations(), ElementsAre("platform/linux/a.cpp:2: may not include effect/trelvan.h",
                                        "platform/linux/a.cpp:3: may not include effect/trelvan.h"));
}

TEST_F(LayoutChecker, SeesAnIncludeOfAMissingFile) {
  file("plugin/a.cpp", {"plugin/gone.h"});
  file("tests/plugin/b.cpp", {"effect/gone.h"});
  EXPECT_THAT(violations(), ElementsAre("plugin/a.cpp:2: includes plugin/gone.h, which is not there",
                                        "tests/plugin/b.cpp:2: includes effect/gone.h, which is not there"));
}

TEST_F(LayoutChecker, LeavesTheSystemsHeadersAlone) {
  whole("platform/a.cpp", "// A file.\n#include <vector>\n#include <sys/stat.h>\n#include <linux/limits.h>\n");
  EXPECT_THAT(violations(), IsEmpty());
}

TEST_F(LayoutChecker, SeesACycleOfTwoFiles) {
  file("plugin/a.h", {"plugin/b.h"});
  file("plugin/b.h", {"plugin/a.h"});
  EXPECT_THAT(violations(),
              ElementsAre("plugin/a.h:1: is in a cycle of includes: plugin/a.h -> plugin/b.h -> plugin/a.h"));
}

TEST_F(LayoutChecker, SeesALongerCycleOnceAndOnlyItsFiles) {
  file("editor/start.cpp", {"editor/a.h"});
  file("editor/a.h", {"presetsystem/b.h"});
  file("presetsystem/b.h", {"editor/c.h"});
  file("editor/c.h", {"editor/a.h"});
  EXPECT_THAT(violations(), ElementsAre("editor/a.h:1: is in a cycle of includes: "
                                        "editor/a.h -> presetsystem/b.h -> editor/c.h -> editor/a.h"));
}

TEST_F(LayoutChecker, SeesAFileThatIncludesItself) {
  file("plugin/a.h", {"plugin/a.h"});
  EXPECT_THAT(violations(), ElementsAre("plugin/a.h:1: is in a cycle of includes: plugin/a.h -> plugin/a.h"));
}

TEST_F(LayoutChecker, TakesTwoWaysToOneFileAsNoCycle) {
  file("plugin/d.h");
  file("plugin/b.h", {"plugin/d.h"});
  file("plugin/c.h", {"plugin/d.h"});
  file("plugin/a.h", {"plugin/b.h", "plugin/c.h"});
  EXPECT_THAT(violations(), IsEmpty());
}

TEST_F(LayoutChecker, SeesAFileThatDoesNotOpenWithASentence) {
  const std::string expected = ":1: does not open with a comment that says in a sentence what the file is";
  whole("plugin/none.h", "#pragma once\n");
  whole("plugin/late.h", "#pragma once\n// A file.\n");
  whole("plugin/empty.h", "");
  whole("plugin/bare.h", "//\n#pragma once\n");
  whole("plugin/words.mm", "// a title without an end\n");
  whole("plugin/point.h", "// .\n");
  EXPECT_THAT(violations(), UnorderedElementsAre("plugin/none.h" + expected, "plugin/late.h" + expected,
                                                 "plugin/empty.h" + expected, "plugin/bare.h" + expected,
                                                 "plugin/words.mm" + expected, "plugin/point.h" + expected));
}

TEST_F(LayoutChecker, TakesASentenceOverSeveralLines) {
  whole("plugin/long.h", "// A sentence that does not\n// end on its first line.\n#pragma once\n");
  EXPECT_THAT(violations(), IsEmpty());
}

TEST_F(LayoutChecker, SeesConditionsOnTheSystem) {
  const char* const conditions[] = {
      "#ifdef __APPLE__",  "#ifndef __linux__", "#if defined(__APPLE__) && 1", "  #  elif defined(__linux__)",
      "#if TARGET_OS_OSX", "#ifdef _WIN32"};
  for (const char* condition : conditions) {
    whole("editor/a.cpp", std::string("// A file.\n") + condition + "\n");
    EXPECT_THAT(violations(), ElementsAre("editor/a.cpp:2: asks for the operating system")) << condition;
  }
}

TEST_F(LayoutChecker, LetsTheSystemsFoldersAskForTheSystem) {
  for (const char* path : {"platform/linux/a.cpp", "editor/mac/a.mm", "tests/mac/compat/a.h"}) {
    whole(path, "// A file.\n#ifdef __APPLE__\n#endif\n");
  }
  EXPECT_THAT(violations(), IsEmpty());
}

TEST_F(LayoutChecker, LetsEveryFileHaveOtherConditions) {
  whole("editor/a.cpp", "// A file for linux.\n#ifdef NDEBUG\n#if 1  \n#ifdef __SSE2__\n// #ifdef __APPLE__\n");
  EXPECT_THAT(violations(), IsEmpty());
}

TEST_F(LayoutChecker, LooksIntoTheRoomsOnlyAndAtSourcesOnly) {
  whole("docs/a.h", "no comment");
  whole("build/plugin/a.h", "no comment");
  whole("plugin/CMakeLists.txt", "no comment");
  whole("loose.h", "no comment");
  EXPECT_THAT(violations(), IsEmpty());
  EXPECT_THAT(sourcePaths(root), IsEmpty());
}

TEST(RoomRules, KnowTheRoomOfAPath) {
  EXPECT_EQ(roomOf("plugin/vst24.h"), "plugin");
  EXPECT_EQ(roomOf("tests/plugin/a.cpp"), "tests");
  EXPECT_EQ(roomOf("plugin"), "");
  EXPECT_EQ(roomOf("sys/stat.h"), "");
  EXPECT_EQ(roomOf("pluginx/a.h"), "");
}

}  // namespace
