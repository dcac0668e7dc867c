// Finds installed plug-ins by their names.
#include "host/vst/pluginsearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "host/vst/pluginplaces.h"
#include "tests/host/foldertest.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

class PluginSearch : public FolderTest {
 protected:
  void makeBundle(const std::string& bundle) const {
    const fs::path inside = in(bundle) / "Contents" / WIDEN_ARCHITECTURE_FOLDER;
    fs::create_directories(inside);
    writeText(inside / (fs::path(bundle).stem().string() + binarySuffix()), "");
  }
  void makeFile(const std::string& name) const {
    fs::create_directories(in(name).parent_path());
    writeText(in(name), "");
  }
  // A binary beside others; where they have no ending, plug-ins are bundles.
  void makePlugin(const std::string& name) const {
    if (binarySuffix().empty()) {
      makeBundle(name + ".vst");
    } else {
      makeFile(name + binarySuffix());
    }
  }

  std::vector<std::string> namesIn(const std::vector<std::string>& folders) const {
    std::vector<fs::path> places;
    for (const std::string& name : folders) places.push_back(in(name));
    std::vector<std::string> names;
    for (const InstalledPlugin& plugin : installedPlugins(places)) names.push_back(plugin.name);
    return names;
  }
};

std::string refusalOf(const std::string& name, const std::vector<InstalledPlugin>& installed) {
  try {
    pluginNamed(name, installed);
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "found";
}

}  // namespace

TEST_F(PluginSearch, ListsBundlesAndBinariesFolderByFolder) {
  makeBundle("b/Wide.vst");
  makePlugin("b/echo");
  makePlugin("a/zoom");
  makeFile("a/readme.txt");
  EXPECT_THAT(namesIn({"b", "a", "missing"}), ElementsAre("Wide", "echo", "zoom"));
}

TEST_F(PluginSearch, LooksIntoFoldersOfAMakerButNotIntoBundles) {
  makePlugin("a/maker/series/deep");
  makeBundle("a/Wide.vst");
  makePlugin("a/Wide.vst/Contents/helpers/helper");
  EXPECT_THAT(namesIn({"a"}), ElementsAre("Wide", "deep"));
}

TEST_F(PluginSearch, EndsWhereALinkLeadsRound) {
  makePlugin("a/one");
  fs::create_directory_symlink(in("a"), in("a/round"));
  const auto found = namesIn({"a"});
  EXPECT_EQ(found.front(), "one");
  EXPECT_LE(found.size(), 5U) << "once, and once for each of four folders below";
}

TEST_F(PluginSearch, FindsTheFirstAsWrittenAndThenInAnyCase) {
  const std::vector<InstalledPlugin> installed = {
      {"echo", "/1/echo.so"}, {"Echo", "/2/Echo.so"}, {"echo", "/3/echo.so"}};
  EXPECT_EQ(pluginNamed("echo", installed), "/1/echo.so");
  EXPECT_EQ(pluginNamed("Echo", installed), "/2/Echo.so");
  EXPECT_EQ(pluginNamed("ECHO", installed), "/1/echo.so");
}

TEST_F(PluginSearch, SuggestsNamesThatComeNear) {
  const std::vector<InstalledPlugin> installed = {{"reverb", "/r.so"}, {"delay", "/d.so"}};
  EXPECT_THAT(refusalOf("reverv", installed), HasSubstr("did you mean \"reverb\""));
  EXPECT_THAT(refusalOf("xyzzy", installed), HasSubstr("--list-plugins"));
}
