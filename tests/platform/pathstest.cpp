// Parts of paths, and what lies at them.
#include "platform/paths.h"

#include <gtest/gtest.h>

#include "tests/support/temporaryfolder.h"

namespace {

TEST(Paths, AreCutAtTheirLastSlash) {
  EXPECT_EQ(folderPart("/a/b"), "/a/");
  EXPECT_EQ(namePart("/a/b"), "b");
  EXPECT_EQ(folderPart("/a/"), "/a/");
  EXPECT_EQ(namePart("/a/"), "");
  EXPECT_EQ(folderPart("b"), "");
  EXPECT_EQ(namePart("b"), "b");
  EXPECT_EQ(folderPart("/"), "/");
  EXPECT_EQ(namePart(""), "");
}

TEST(Paths, LeadToFilesAndFoldersAndNothing) {
  const TemporaryFolder folder;
  const std::string file = folder / "file";
  writeFile(file, "content");
  std::filesystem::create_symlink(file, folder / "link");
  EXPECT_TRUE(isFile(file));
  EXPECT_TRUE(isFile(folder / "link"));
  EXPECT_FALSE(isFolder(file));
  EXPECT_TRUE(isFolder(folder.path));
  EXPECT_FALSE(isFile(folder.path));
  EXPECT_FALSE(isFile(folder / "nothing"));
  EXPECT_FALSE(isFolder(folder / "nothing"));
}

}  // namespace
