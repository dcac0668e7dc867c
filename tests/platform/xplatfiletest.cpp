// Whole-file access and path splitting.
#include "platform/xplatfile.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/temporaryfolder.h"

namespace {

namespace fs = std::filesystem;

// A folder of its own for each test, named with its trailing slash.
class XPlatFile : public testing::Test {
 protected:
  void write(const std::string& name, const std::string& content) {
    std::ofstream(dir + name, std::ios::binary) << content;
  }
  std::string read(const std::string& name) {
    std::ifstream in(dir + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  long open(const char* name, bool forWrite) {
    return XPlatFileOpen(name, dir.c_str(), &handle, forWrite);
  }

  const TemporaryFolder folder;
  const std::string dir = folder.path + "/";
  void* handle = &handle;  // anything but null, so that a null handle shows
};

TEST_F(XPlatFile, OpensForReadingAtTheStartAndReturnsTheLength) {
  write("a.orv", "twelve bytes");
  EXPECT_EQ(open("a.orv", false), 12);
  ASSERT_NE(handle, nullptr);
  char buffer[32] = {};
  EXPECT_EQ(XPlatFileRead(handle, buffer, 6), 6);
  EXPECT_STREQ(buffer, "twelve");
  EXPECT_EQ(XPlatFileRead(handle, buffer, 32), 6) << "what is left";
  EXPECT_EQ(XPlatFileRead(handle, buffer, 32), 0);
  XPlatFileClose(handle);
}

TEST_F(XPlatFile, HasNoLengthAndNoHandleForAMissingFile) {
  EXPECT_EQ(open("missing", false), 0);
  EXPECT_EQ(handle, nullptr);
}

TEST_F(XPlatFile, HasNoLengthAndNoHandleForAFolder) {
  EXPECT_EQ(XPlatFileOpen("", dir.c_str(), &handle, false), 0);
  EXPECT_EQ(handle, nullptr);
}

TEST_F(XPlatFile, HasNoLengthAndNoHandleWhereNothingCanBeWritten) {
  EXPECT_EQ(open("no such folder/a.orv", true), 0);
  EXPECT_EQ(handle, nullptr);
}

// The running program can be read by everybody and written by nobody, not even by the superuser.
TEST_F(XPlatFile, DoesNotOpenAFileThatMayOnlyBeRead) {
  const char* const running = "/proc/self/exe";
  if (!fs::exists(running)) GTEST_SKIP() << "no such file on this system";
  ASSERT_TRUE(std::ifstream(running).good());
  EXPECT_EQ(XPlatFileOpen("exe", "/proc/self/", &handle, false), 0);
  EXPECT_EQ(handle, nullptr);
}

TEST_F(XPlatFile, OpensAFileToReadThatMayOnlyBeRead) {
  const char* const running = "/proc/self/exe";
  if (!fs::exists(running)) GTEST_SKIP() << "no such file on this system";
  const long length = XPlatFileOpenToRead("exe", "/proc/self/", &handle);
  EXPECT_EQ(length, static_cast<long>(fs::file_size(running)));
  ASSERT_NE(handle, nullptr);
  char buffer[4] = {};
  EXPECT_EQ(XPlatFileRead(handle, buffer, 4), 4);
  EXPECT_EQ(std::string(buffer, 4),
            "\x7F"
            "ELF");
  XPlatFileClose(handle);
}

TEST_F(XPlatFile, OpensToReadWhatMayBeWrittenToo) {
  write("a.orv", "twelve bytes");
  EXPECT_EQ(XPlatFileOpenToRead("a.orv", dir.c_str(), &handle), 12);
  ASSERT_NE(handle, nullptr);
  XPlatFileClose(handle);
}

// A folder's length would be what its file system likes.
TEST_F(XPlatFile, OpensNeitherAFolderNorNothingToRead) {
  EXPECT_EQ(XPlatFileOpenToRead("", dir.c_str(), &handle), 0);
  EXPECT_EQ(handle, nullptr);
  handle = &handle;
  EXPECT_EQ(XPlatFileOpenToRead("missing", dir.c_str(), &handle), 0);
  EXPECT_EQ(handle, nullptr);
}

TEST_F(XPlatFile, OpensAnEmptyFileWithLengthZeroAndAHandle) {
  write("empty", "");
  EXPECT_EQ(open("empty", false), 0);
  EXPECT_NE(handle, nullptr);
  XPlatFileClose(handle);
}

TEST_F(XPlatFile, CreatesAFileForWriting) {
  EXPECT_EQ(open("new", true), 0);
  ASSERT_NE(handle, nullptr);
  char data[] = {'a', 0, 'b'};
  EXPECT_EQ(XPlatFileWrite(handle, data, 3), 3);
  XPlatFileClose(handle);
  EXPECT_EQ(read("new"), std::string("a\0b", 3));
}

TEST_F(XPlatFile, TruncatesAFileThatIsOpenedForWriting) {
  write("old", "much longer than what comes");
  EXPECT_EQ(open("old", true), 0);
  XPlatFileWrite(handle, "short", 5);
  XPlatFileClose(handle);
  EXPECT_EQ(read("old"), "short");
}

TEST_F(XPlatFile, KeepsAFileThatIsOpenedForReading) {
  write("kept", "content");
  EXPECT_EQ(open("kept", false), 7);
  XPlatFileClose(handle);
  EXPECT_EQ(read("kept"), "content");
}

TEST_F(XPlatFile, TakesANullHandleEverywhere) {
  char buffer[4] = "abc";
  EXPECT_EQ(XPlatFileRead(nullptr, buffer, 3), 0);
  EXPECT_EQ(XPlatFileWrite(nullptr, buffer, 3), 0);
  XPlatFileClose(nullptr);
  EXPECT_STREQ(buffer, "abc");
}

TEST_F(XPlatFile, ReadsAndWritesNothingForACountBelowOne) {
  write("a", "content");
  open("a", false);
  char buffer[4] = "abc";
  for (const long count : {0L, -1L}) {
    EXPECT_EQ(XPlatFileRead(handle, buffer, count), 0);
    EXPECT_EQ(XPlatFileWrite(handle, buffer, count), 0);
  }
  XPlatFileClose(handle);
  EXPECT_EQ(read("a"), "content");
  EXPECT_STREQ(buffer, "abc");
}

TEST_F(XPlatFile, JoinsLongNamesWhole) {
  const std::string name(200, 'n');
  write(name, "1234");
  EXPECT_EQ(open(name.c_str(), false), 4);
  XPlatFileClose(handle);
}

class XPlatPath : public testing::Test {
 protected:
  void split(const std::string& path) { XPlatGetFileNameAndDir(path.c_str(), name, dir); }

  char name[kXPlatPathPartSize] = "name before";
  char dir[kXPlatPathPartSize] = "dir before";
};

TEST_F(XPlatPath, SplitsAtTheLastSlashWhichStaysWithTheDirectory) {
  split("/a/b/c.orv");
  EXPECT_STREQ(name, "c.orv");
  EXPECT_STREQ(dir, "/a/b/");
}

TEST_F(XPlatPath, LeavesBothAsTheyAreWithoutASlash) {
  split("c.orv");
  EXPECT_STREQ(name, "name before");
  EXPECT_STREQ(dir, "dir before");
}

TEST_F(XPlatPath, HasAnEmptyNameBehindATrailingSlash) {
  split("/a/b/");
  EXPECT_STREQ(name, "");
  EXPECT_STREQ(dir, "/a/b/");
}

TEST_F(XPlatPath, KeepsTheRootAsADirectory) {
  split("/c.orv");
  EXPECT_STREQ(name, "c.orv");
  EXPECT_STREQ(dir, "/");
}

TEST_F(XPlatPath, TakesPartsThatJustFit) {
  const std::string longest(kXPlatPathPartSize - 1, 'n');
  const std::string longestDir = "/" + std::string(kXPlatPathPartSize - 3, 'd') + "/";
  split(longestDir + longest);
  EXPECT_EQ(name, longest);
  EXPECT_EQ(dir, longestDir);
}

TEST_F(XPlatPath, LeavesBothAsTheyAreWhereAPartDoesNotFit) {
  split("/" + std::string(kXPlatPathPartSize, 'n'));
  split("/" + std::string(kXPlatPathPartSize - 2, 'd') + "/c.orv");
  EXPECT_STREQ(name, "name before");
  EXPECT_STREQ(dir, "dir before");
}

}  // namespace
