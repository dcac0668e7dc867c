// Files that move parameters, read with Trelvan and with a plug-in that shows units.
#include "host/state/automationfile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "host/base/failure.h"
#include "host/vst/pluginpath.h"
#include "tests/host/foldertest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class AutomationFiles : public FolderTest {
 protected:
  AutomationFiles() { useOwnPreferences(); }

  std::vector<AutomationLane> read(const std::string& text,
                                   const std::string& plugin = WIDEN_TRELVAN) {
    writeText(in("moves.txt"), text);
    PluginModule module(pluginBinary(plugin));
    HostCallback callback;
    Effect effect(module, callback);
    return readAutomation(effect, in("moves.txt").string());
  }
  std::string refusalOf(const std::string& text, const std::string& plugin = WIDEN_TRELVAN) {
    try {
      read(text, plugin);
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.status(), ExitStatus::failed) << "the command line is right";
      return failure.what();
    }
    return "accepted";
  }

  // Seconds and value, one after the other.
  static std::vector<double> pointsOf(const AutomationLane& lane) {
    std::vector<double> all;
    for (const AutomationPoint& point : lane.points) {
      all.push_back(point.seconds);
      all.push_back(static_cast<double>(point.value));
    }
    return all;
  }
  const std::string displays = WIDEN_TEST_PLUGINS "/displays.so";
};

}  // namespace

TEST_F(AutomationFiles, HoldALineForEachPoint) {
  const auto lanes = read("0 width 25%\n1.5 width 0.75\n250ms baseFreq 265Hz\n2s 3 off\n");
  ASSERT_THAT(lanes, SizeIs(3));
  EXPECT_EQ(lanes[0].parameter, 0);
  EXPECT_THAT(pointsOf(lanes[0]), ElementsAre(0.0, 0.25, 1.5, 0.75));
  EXPECT_EQ(lanes[1].parameter, 1);
  EXPECT_THAT(pointsOf(lanes[1]), ElementsAre(0.25, 0.5));
  EXPECT_EQ(lanes[2].parameter, 3);
  EXPECT_THAT(pointsOf(lanes[2]), ElementsAre(2.0, 0.0));
}

TEST_F(AutomationFiles, MayComeFromAnyEditor) {
  const auto lanes =
      read("\xEF\xBB\xBF# the verse\r\n\r\n\t1 \t WIDTH\t 50% \r\n  # 2 width 0\r\n3 width 1");
  ASSERT_THAT(lanes, SizeIs(1));
  EXPECT_THAT(pointsOf(lanes[0]), ElementsAre(1.0, 0.5, 3.0, 1.0));
}

TEST_F(AutomationFiles, AreSortedByTimeAndKeepTheOrderOfALeap) {
  const auto lanes = read("3 width 0.5\n2 width 1\n1 width 0\n2 width 0.25\n");
  EXPECT_THAT(pointsOf(lanes.at(0)), ElementsAre(1.0, 0.0, 2.0, 1.0, 2.0, 0.25, 3.0, 0.5));
}

// "Wet" is a parameter, "Wet level" another.
TEST_F(AutomationFiles, NameParametersWithBlanksInTheirNames) {
  const auto lanes = read("1 wet level 0.5\n1 Wet 0.25\n2 Distance 24 m\n", displays);
  ASSERT_THAT(lanes, SizeIs(3));
  EXPECT_EQ(lanes[0].parameter, 0);
  EXPECT_NEAR(static_cast<double>(lanes[0].points.at(0).value), 0.5, 1e-3) << "24 of 48 m";
  EXPECT_EQ(lanes[1].parameter, 7);
  EXPECT_THAT(pointsOf(lanes[1]), ElementsAre(1.0, 0.25));
  EXPECT_EQ(lanes[2].parameter, 8);
  EXPECT_THAT(pointsOf(lanes[2]), ElementsAre(1.0, 0.5));
}

TEST_F(AutomationFiles, AreRefusedWithTheLineThatIsWrong) {
  EXPECT_THAT(refusalOf("\n# a\n1 widht 0.5\n"),
              HasSubstr("moves.txt, line 3: there is no parameter \"widht\" (did you mean"));
  EXPECT_THAT(refusalOf("0 width 1\nsoon width 1"), HasSubstr("line 2: \"soon\" is no time"));
  EXPECT_THAT(refusalOf("-1 width 1"), HasSubstr("not a time within"));
  EXPECT_THAT(refusalOf("1e9 width 1"), HasSubstr("not a time within"));
  EXPECT_THAT(refusalOf("1h width 1"), HasSubstr("is no time"));
  EXPECT_THAT(refusalOf("1 width"), HasSubstr("no value after width"));
  EXPECT_THAT(refusalOf("1"), HasSubstr("no parameter and no value"));
  EXPECT_THAT(refusalOf("1 9 0.5"), HasSubstr("no parameter 9; they are numbered 0 to 4"));
  EXPECT_THAT(refusalOf("1 width 130%"), HasSubstr("line 1: width: \"130%\" is not within"));
  EXPECT_THAT(refusalOf("1 Distance 24 Hz", displays), HasSubstr("now it shows \"12.0 m\""));
  EXPECT_THAT(refusalOf("# nothing\n"), HasSubstr("holds no point"));
  EXPECT_THAT(refusalOf("1 x 1", WIDEN_TEST_PLUGINS "/latency.so"), HasSubstr("no parameters"));
}
