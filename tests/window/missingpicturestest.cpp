// Opening the window where one of its pictures cannot be read.
#include "windowtest.h"

namespace {

namespace fs = std::filesystem;

// Works with a copy of the bundle.
class MissingPictures : public WindowTest {
 protected:
  MissingPictures() { fs::copy(original, copy, fs::copy_options::recursive); }

  fs::path picture(const std::string& name) const { return copy / "Contents/Resources" / name; }

  const fs::path module = std::getenv("TRELVAN_MODULE");
  const fs::path original = module.parent_path().parent_path().parent_path();
  const fs::path copy = folder / "copy.vst";
  ScopedVariable used{"TRELVAN_MODULE", copy / fs::relative(module, original)};
};

}  // namespace

TEST_F(MissingPictures, TheAnswerIsNoUntilAllCanBeRead) {
  Picture expected;
  {
    WindowHost host;
    ASSERT_TRUE(host.openEditor());
    expected = host.picture();
  }
  int pictures = 0;
  for (const auto& file : fs::directory_iterator(copy / "Contents/Resources")) {
    const std::string name = file.path().filename();
    const bool isShown = name.ends_with(".png") && name.find('@') == std::string::npos &&
                         name != "bmp00133.png";  // which nothing shows
    if (!isShown) continue;
    SCOPED_TRACE(name);
    ++pictures;
    const fs::path away = folder / name;
    fs::rename(picture(name), away);
    WindowHost host;
    EXPECT_FALSE(host.openOnly());
    EXPECT_TRUE(host.hasChildWindows(0));
    host.idle(3);
    fs::rename(away, picture(name));
    ASSERT_TRUE(host.openEditor());
    EXPECT_EQ(host.picture(), expected);
  }
  EXPECT_GE(pictures, 15);
}
