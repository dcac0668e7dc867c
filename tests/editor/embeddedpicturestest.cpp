// The pictures inside the module are the bundle's.
#include "editor/base/linux/embeddedpictures.h"

#include <gtest/gtest.h>

#include "platform/modulepath.h"
#include "tests/support/temporaryfolder.h"

namespace {

namespace fs = std::filesystem;

TEST(EmbeddedPictures, AreTheBundlesByteForByte) {
  int pictures = 0;
  for (const auto& file : fs::directory_iterator(resourcesFolder())) {
    if (file.path().extension() != ".png") continue;
    ++pictures;
    const auto bytes = embeddedPicture(file.path().filename().string());
    EXPECT_TRUE(std::string(bytes.begin(), bytes.end()) == contentOf(file.path())) << file.path();
  }
  EXPECT_EQ(pictures, 24 * 4) << "each at four scales";
}

TEST(EmbeddedPictures, HaveNoBytesWhereTheBundleHasNoSuchFile) {
  for (const char* name : {"", "bmp00128", "bmp00128@4x.png", "bmp00129.png", "bmp00128.png "})
    EXPECT_TRUE(embeddedPicture(name).empty()) << name;
}

}  // namespace
