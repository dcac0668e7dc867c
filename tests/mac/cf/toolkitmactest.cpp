// What the toolkit is handed, and when. Its own functions are replaced here.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cfobject.h"
#include "dyld.h"
#include "editor/base/mac/bundlelookup.h"
#include "editor/base/toolkitsetup.h"
#include "lib/vstguiinit.h"

namespace {

VSTGUI::PlatformInstanceHandle handed = nullptr;
std::string calls;
long referencesAtExit = 0;

}  // namespace

void VSTGUI::init(PlatformInstanceHandle instance) {
  handed = instance;
  calls += "init ";
}

void VSTGUI::exit() {
  referencesAtExit = cfdouble::references();
  calls += "exit ";
}

namespace {

TEST(ToolkitMac, GivesTheToolkitTheBundleAndKeepsItAliveUntilItIsDown) {
  const std::string bundle = std::filesystem::current_path() / "Product.vst";
  const std::string image = bundle + "/Contents/MacOS/Product";
  std::filesystem::create_directories(bundle);
  dylddouble::show({{nullptr, "/Host"}, {dylddouble::ownHeader(), image.c_str()}});
  const long before = cfdouble::references();
  for (int round = 0; round < 2; ++round) {
    calls.clear();
    setUpToolkit();
    EXPECT_EQ(handed, gBundleRef);
    EXPECT_EQ(cfdouble::get(handed, cfdouble::Kind::bundle)->path, bundle);
    EXPECT_EQ(cfdouble::references(), before + 1);
    tearDownToolkit();
    EXPECT_EQ(calls, "init exit ");
    EXPECT_EQ(referencesAtExit, before + 1);
    EXPECT_EQ(cfdouble::references(), before);
  }
  dylddouble::showProcess();
  gBundleRef = nullptr;
}

}  // namespace
