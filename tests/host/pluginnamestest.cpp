// What --plugin names, and what --list-plugins shows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/vst/pluginplaces.h"
#include "tests/host/program.h"

namespace {

using testing::HasSubstr;

class PluginNames : public ProgramTest {};

}  // namespace

TEST_F(PluginNames, GoesThroughVstPathBeforeTheUsualFolders) {
  if (binarySuffix().empty()) GTEST_SKIP() << "plug-ins are bundles here, the tests' are binaries";
  const Surroundings path{{{"VST_PATH", in("none").string() + ":" + WIDEN_TEST_PLUGINS}}};
  const Outcome outcome = widen({"--plugin", "ECHO", "--info"}, path);
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_THAT(outcome.out, HasSubstr(plugin("echo")));
  expectRefusal(widen({"--plugin", "ecko", "--info"}, path), 1, "did you mean \"echo\"");
  EXPECT_THAT(widen({"--list-plugins"}, path).out, HasSubstr("echo  " + plugin("echo") + "\n"));
}

TEST_F(PluginNames, TakesAPathForAPath) {
  const Surroundings path{{{"VST_PATH", WIDEN_TEST_PLUGINS}}};
  expectRefusal(widen({"--plugin", "./echo", "--info"}, path), 1, "./echo: no such plug-in");
}
