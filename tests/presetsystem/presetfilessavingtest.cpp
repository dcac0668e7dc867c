// Tests of what saving leaves of the file that was there.
#include <iterator>

#include "tests/presetsystem/filesfixture.h"
#include "tests/support/fulldisk.h"

namespace {

using imagebytes::Bytes;
using imagebytes::Preset;

const Preset kPad = {"soft pad", {0.3F, 0.25F, 0.5F, 1.0F, 0.0F}};

// What fits into no buffer's rest goes out when the file is closed, and is lost there as well.
TEST_F(Files, AFullDiskLeavesTheOldFile) {
  begin(imagebytes::distinctBank());
  const Bytes old = imagebytes::bankImage({}, 3);
  for (const std::size_t room : {std::size_t{0}, std::size_t{100}, std::size_t{9000}}) {
    const std::string path = put("all.orb", old);
    userChooses(path);
    editor().saveBank();
    ASSERT_TRUE(desktop.isCalled("zenity"));
    const FullDisk full(room);
    finish();
    EXPECT_EQ(bytesOf(path), old) << room;
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(files.path), {}), 1);
}

TEST_F(Files, SavingKeepsLinksAndRights) {
  preset(0) = recordOf(kPad);
  writeFile(files / "real.orv", "old");
  ASSERT_EQ(chmod((files / "real.orv").c_str(), 0604), 0);
  std::filesystem::create_symlink("real.orv", files / "link.orv");
  savePreset(files / "link.orv");
  EXPECT_TRUE(std::filesystem::is_symlink(files / "link.orv"));
  EXPECT_EQ(bytesOf(files / "real.orv"), imagebytes::presetImage(kPad));
  EXPECT_EQ(std::filesystem::status(files / "real.orv").permissions(),
            static_cast<std::filesystem::perms>(0604));
  EXPECT_STREQ(editor().presetFileName, "link.orv");
}

}  // namespace
