// The bundle lookup on the doubles of the dynamic loader and Core Foundation.
#include "editor/base/mac/bundlelookup.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "cfobject.h"
#include "dyld.h"

namespace {

const char host = 0;  // stands for the header of the host's program

class BundleLookup : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(bundle + "/Contents/MacOS");
    gBundleRef = nullptr;
    referencesBefore = cfdouble::references();
  }
  void TearDown() override {
    EXPECT_EQ(cfdouble::references(), referencesBefore);
    dylddouble::showProcess();
    gBundleRef = nullptr;
  }

  static std::string pathOf(CFBundleRef found) {
    return cfdouble::get(found, cfdouble::Kind::bundle)->path;
  }

  const std::string bundle = std::filesystem::current_path() / "Some Product.vst";
  const std::string image = bundle + "/Contents/MacOS/Some Product";
  long referencesBefore = 0;
};

TEST_F(BundleLookup, FindsTheFolderThreeLevelsAboveTheImage) {
  dylddouble::show({{&host, "/Host"}, {dylddouble::ownHeader(), image.c_str()}});
  InitMachOLibrary();
  ASSERT_NE(gBundleRef, nullptr);
  EXPECT_EQ(pathOf(gBundleRef), bundle);
  ExitMachOLibrary();
}

TEST_F(BundleLookup, FindsItsImageAmongOthers) {
  const char other = 0;
  dylddouble::show({{&host, "/Host"},
                    {&other, "/Other.vst/Contents/MacOS/Other"},
                    {dylddouble::ownHeader(), image.c_str()}});
  InitMachOLibrary();
  ASSERT_NE(gBundleRef, nullptr);
  EXPECT_EQ(pathOf(gBundleRef), bundle);
  ExitMachOLibrary();
}

TEST_F(BundleLookup, SkipsTheFirstImage) {
  const char other = 0;
  dylddouble::show({{dylddouble::ownHeader(), image.c_str()}, {&other, "/Other"}});
  InitMachOLibrary();
  EXPECT_EQ(gBundleRef, nullptr);
}

TEST_F(BundleLookup, LeavesTheReferenceWhereThereAreFewerThanTwoImages) {
  dylddouble::show({{&host, "/Host"}, {dylddouble::ownHeader(), image.c_str()}});
  InitMachOLibrary();
  const CFBundleRef found = gBundleRef;
  dylddouble::show({{&host, "/Host"}});
  InitMachOLibrary();
  EXPECT_EQ(gBundleRef, found);
  ExitMachOLibrary();
}

TEST_F(BundleLookup, LeavesTheReferenceWhereTheImageHasNoName) {
  dylddouble::show({{&host, "/Host"}, {dylddouble::ownHeader(), image.c_str()}});
  InitMachOLibrary();
  const CFBundleRef found = gBundleRef;
  dylddouble::show({{&host, "/Host"}, {dylddouble::ownHeader(), nullptr}});
  InitMachOLibrary();
  EXPECT_EQ(gBundleRef, found);
  ExitMachOLibrary();
}

TEST_F(BundleLookup, ClearsTheReferenceWhereThePathIsTooShort) {
  dylddouble::show({{&host, "/Host"}, {dylddouble::ownHeader(), image.c_str()}});
  InitMachOLibrary();
  ExitMachOLibrary();
  ASSERT_NE(gBundleRef, nullptr);
  dylddouble::show({{&host, "/Host"}, {dylddouble::ownHeader(), "MacOS/Product"}});
  InitMachOLibrary();
  EXPECT_EQ(gBundleRef, nullptr);
  ExitMachOLibrary();
}

TEST_F(BundleLookup, ClearsTheReferenceWhereTheFolderIsGone) {
  dylddouble::show(
      {{&host, "/Host"}, {dylddouble::ownHeader(), "/no/such/Product.vst/Contents/MacOS/Product"}});
  InitMachOLibrary();
  EXPECT_EQ(gBundleRef, nullptr);
}

TEST_F(BundleLookup, TakesOneReferenceForEachCall) {
  dylddouble::show({{&host, "/Host"}, {dylddouble::ownHeader(), image.c_str()}});
  InitMachOLibrary();
  InitMachOLibrary();
  EXPECT_EQ(cfdouble::references(), referencesBefore + 2);
  ExitMachOLibrary();
  EXPECT_EQ(pathOf(gBundleRef), bundle);  // still alive, and still known
  ExitMachOLibrary();
}

TEST_F(BundleLookup, ReleasesNothingWhereNothingWasFound) {
  ExitMachOLibrary();
}

}  // namespace
