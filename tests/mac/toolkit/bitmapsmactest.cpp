// The bundle's pictures as macOS loads them, each with its sharp variant; here by the
// toolkit for Linux.
#include <gtest/gtest.h>

#include <filesystem>

#include "editor/base/bitmaps.h"
#include "lib/platform/iplatformbitmap.h"
#include "lib/platform/linux/linuxfactory.h"
#include "lib/platform/platformfactory.h"
#include "lib/vstguiinit.h"

namespace {

namespace fs = std::filesystem;

class BitmapsMac : public testing::Test {
 protected:
  void SetUp() override {
    VSTGUI::init(nullptr);
    VSTGUI::getPlatformFactory().asLinuxFactory()->setResourcePath(MAC_RESOURCES);
  }
  void TearDown() override { VSTGUI::exit(); }
};

TEST_F(BitmapsMac, AreTwiceAsSharpWhereTheScreenIs) {
  int pictures = 0;
  for (const auto& file : fs::directory_iterator(MAC_RESOURCES)) {
    const std::string name = file.path().filename().string();
    if (name.size() != 12 || name.substr(0, 3) != "bmp") continue;  // bmp00128.png
    ++pictures;
    const auto bitmap = loadBitmap(std::stoi(name.substr(3)));
    ASSERT_TRUE(bitmap->isLoaded()) << name;
    const auto plain = bitmap->getBestPlatformBitmapForScaleFactor(1.);
    const auto sharp = bitmap->getBestPlatformBitmapForScaleFactor(2.);
    ASSERT_NE(sharp, plain) << name;
    EXPECT_EQ(plain->getScaleFactor(), 1.) << name;
    EXPECT_EQ(sharp->getScaleFactor(), 2.) << name;
    EXPECT_EQ(sharp->getSize(), VSTGUI::CPoint(2 * plain->getSize().x, 2 * plain->getSize().y))
        << name;
  }
  EXPECT_GE(pictures, 20);
}

TEST_F(BitmapsMac, DrawNothingWhereTheFileIsMissing) {
  const auto bitmap = loadBitmap(99999);
  EXPECT_FALSE(bitmap->isLoaded());
  EXPECT_EQ(bitmap->getWidth(), 0.);
}

}  // namespace
