// The path of the running program, as the dynamic loader has it.
#include "host/vst/executablepath.h"

#include <gtest/gtest.h>

#include "dyld.h"
#include "tests/support/temporaryfolder.h"

namespace {

class ExecutablePathMac : public testing::Test {
 protected:
  const TemporaryFolder folder;
};

TEST_F(ExecutablePathMac, IsWhatTheLoaderHasNoted) {
  writeFile(folder / "widen", "");
  dylddouble::showExecutable(folder / "widen");
  EXPECT_EQ(executablePath(), folder / "widen");
}

// The bundle lies beside the program itself, not beside a link to it.
TEST_F(ExecutablePathMac, LeadsThroughLinksAndDots) {
  writeFile(folder / "widen", "");
  std::filesystem::create_symlink("widen", folder / "link");
  dylddouble::showExecutable(folder / "./../" +
                             std::filesystem::path(folder.path).filename().string() + "/link");
  EXPECT_EQ(executablePath(), folder / "widen");
}

TEST_F(ExecutablePathMac, MayBeOfAnyLength) {
  std::string deep = folder.path;
  for (int i = 0; i < 10; ++i) deep += "/" + std::string(200, 'd');
  std::filesystem::create_directories(deep);
  writeFile(deep + "/widen", "");
  dylddouble::showExecutable(deep + "/widen");
  EXPECT_EQ(executablePath(), deep + "/widen");
}

TEST_F(ExecutablePathMac, IsEmptyWhereTheProgramIsGone) {
  dylddouble::showExecutable(folder / "gone");
  EXPECT_TRUE(executablePath().empty());
}

}  // namespace
