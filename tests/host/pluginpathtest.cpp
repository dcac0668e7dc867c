// From a bundle or a binary as named, or from nothing named, to the binary that is loaded.
#include "host/vst/pluginpath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/base/failure.h"
#include "host/vst/pluginplaces.h"
#include "tests/host/foldertest.h"

namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;

class PluginPaths : public FolderTest {
 protected:
  fs::path makeBundle(const std::string& bundle, const std::vector<std::string>& binaries) const {
    fs::path inside = in(bundle) / "Contents" / WIDEN_ARCHITECTURE_FOLDER;
    fs::create_directories(inside);
    for (const std::string& name : binaries) writeText(inside / name, "");
    return inside;
  }

  std::string refusalOf(const std::string& name) const {
    try {
      pluginBinary(in(name));
    } catch (const Failure& failure) {
      return failure.what();
    }
    return "accepted";
  }
};

}  // namespace

TEST_F(PluginPaths, TakeABinaryAsItIs) {
  writeText(in("effect.so"), "");
  EXPECT_EQ(pluginBinary(in("effect.so")), in("effect.so"));
}

TEST_F(PluginPaths, AreAbsoluteSoThatTheLoaderDoesNotSearch) {
  writeText(in("effect.so"), "");
  const fs::path before = fs::current_path();
  fs::current_path(folder);
  EXPECT_EQ(pluginBinary("effect.so"), in("effect.so"));
  fs::current_path(before);
}

TEST_F(PluginPaths, LookIntoABundle) {
  const std::string mine = "My" + binarySuffix();
  const fs::path inside = makeBundle("My.vst", {mine, "helper" + binarySuffix(), "notes.txt"});
  EXPECT_EQ(pluginBinary(in("My.vst")), inside / mine);
  EXPECT_EQ(pluginBinary(in("My.vst").string() + "/"), inside / mine);
}

TEST_F(PluginPaths, TakeTheOnlyBinaryOfABundleThatIsNamedOtherwise) {
  const std::string other = "other" + binarySuffix();
  const fs::path inside = makeBundle("My.vst", {other, "notes.txt"});
  EXPECT_EQ(pluginBinary(in("My.vst")), inside / other);
}

TEST_F(PluginPaths, SayWhatIsWrongWithABundle) {
  EXPECT_THAT(refusalOf("missing.vst"), HasSubstr("no such plug-in"));
  fs::create_directories(in("Foreign.vst") / "Contents" / "SomethingElse");
  EXPECT_THAT(refusalOf("Foreign.vst"), HasSubstr("not a plug-in for this system"));
  makeBundle("Empty.vst", {"notes.txt"});
  EXPECT_THAT(refusalOf("Empty.vst"), HasSubstr("no plug-in binary"));
  makeBundle("Many.vst", {"a" + binarySuffix(), "b" + binarySuffix()});
  EXPECT_THAT(refusalOf("Many.vst"), HasSubstr("several binaries"));
}

TEST_F(PluginPaths, LookBesideTheProgramFirst) {
  const auto places = defaultPluginPlaces("/opt/tree/build/release/widen");
  EXPECT_EQ(places.front(), "/opt/tree/build/release/Trelvan.vst");
  EXPECT_THAT(places, Contains(fs::path("/opt/tree/build/Trelvan.vst")));
  EXPECT_THAT(places, Contains(fs::path("/opt/tree/build/release/Trelvan.vst")));
  for (const fs::path& hosts : commonPluginFolders())
    EXPECT_THAT(places, Contains(hosts / "Trelvan.vst")) << "where hosts look";
}

TEST_F(PluginPaths, KnowAnInstallationAndATree) {
  EXPECT_THAT(defaultPluginPlaces("/usr/local/bin/widen"),
              Contains(fs::path("/usr/local/lib/vst/Trelvan.vst")));
  EXPECT_THAT(defaultPluginPlaces("/home/a/tree/tools/widen"),
              Contains(fs::path("/home/a/tree/build/release/Trelvan.vst")));
}

TEST_F(PluginPaths, TakeTheFirstPlaceThatIsThere) {
  fs::create_directory(in("b"));
  fs::create_directory(in("c"));
  EXPECT_EQ(firstPlugin({in("a"), in("b"), in("c")}), in("b"));
  EXPECT_THROW(firstPlugin({in("a")}), Failure);
  EXPECT_THROW(firstPlugin({}), Failure);
}
