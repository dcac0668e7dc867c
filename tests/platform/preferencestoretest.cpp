// Tests of the preferences: what is kept, what it costs, and what happens where nothing
// can be kept.
#include "tests/support/preferencestoretest.h"

#include <fcntl.h>
#include <sys/file.h>

#include <chrono>
#include <cstring>

namespace {

TEST_F(Preferences, KeepStringsAndBytesForOtherObjects) {
  std::string image(10537, 0);
  for (std::size_t i = 0; i < image.size(); ++i) image[i] = static_cast<char>(i * 7);
  PreferenceStore preferences(kId);
  preferences.setString("CurrDir", "/home/me/My presets/");
  preferences.setBytes("DefaultBank", image.data(), image.size());
  ASSERT_TRUE(preferences.synchronise());

  char text[257] = "before";
  EXPECT_TRUE(PreferenceStore(kId).getString("CurrDir", text, 256));
  EXPECT_STREQ(text, "/home/me/My presets/");
  EXPECT_EQ(stored("DefaultBank"), image);
}

TEST_F(Preferences, KeepEveryByteOfAString) {
  std::string all = " ";
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  all += " ";
  PreferenceStore preferences(kId);
  preferences.setString("CurrDir", all.c_str());
  ASSERT_TRUE(preferences.synchronise());
  char text[300];
  ASSERT_TRUE(PreferenceStore(kId).getString("CurrDir", text, sizeof text));
  EXPECT_EQ(text, all);
}

TEST_F(Preferences, LeaveTheBufferAloneWhereTheKeyIsMissing) {
  char text[] = "before";
  EXPECT_FALSE(PreferenceStore(kId).getString("CurrDir", text, sizeof text));
  EXPECT_STREQ(text, "before");
  std::vector<unsigned char> bytes{1, 2};
  EXPECT_FALSE(PreferenceStore(kId).getBytes("DefaultBank", bytes));
  EXPECT_EQ(bytes, (std::vector<unsigned char>{1, 2}));
}

TEST_F(Preferences, GiveAStringOnlyWhereItFitsWithItsTerminator) {
  PreferenceStore preferences(kId);
  preferences.setString("Fits", std::string(255, 'a').c_str());
  preferences.setString("TooLong", std::string(256, 'b').c_str());
  ASSERT_TRUE(preferences.synchronise());
  char text[257] = "before";
  EXPECT_FALSE(PreferenceStore(kId).getString("TooLong", text, 256));
  EXPECT_STREQ(text, "before");
  EXPECT_TRUE(PreferenceStore(kId).getString("Fits", text, 256));
  EXPECT_EQ(text, std::string(255, 'a'));
}

TEST_F(Preferences, TellStringsFromBytes) {
  PreferenceStore preferences(kId);
  preferences.setString("Text", "00ff");
  preferences.setBytes("Bytes", "text", 4);
  ASSERT_TRUE(preferences.synchronise());
  std::vector<unsigned char> bytes;
  char text[16];
  EXPECT_FALSE(PreferenceStore(kId).getBytes("Text", bytes));
  EXPECT_FALSE(PreferenceStore(kId).getString("Bytes", text, sizeof text));
}

TEST_F(Preferences, KeepEmptyValues) {
  PreferenceStore preferences(kId);
  preferences.setString("Text", "");
  preferences.setBytes("Bytes", "", 0);
  ASSERT_TRUE(preferences.synchronise());
  char text[16] = "before";
  EXPECT_TRUE(PreferenceStore(kId).getString("Text", text, sizeof text));
  EXPECT_STREQ(text, "");
  EXPECT_EQ(stored("Bytes"), "");
}

TEST_F(Preferences, RemoveAKey) {
  store("MemoAPreset", "a");
  store("MemoBPreset", "b");
  PreferenceStore preferences(kId);
  preferences.remove("MemoAPreset");
  ASSERT_TRUE(preferences.synchronise());
  EXPECT_EQ(stored("MemoAPreset"), "missing");
  EXPECT_EQ(stored("MemoBPreset"), "b");
}

// As a person's editor may leave it: the last line counts, and none of them comes back.
TEST_F(Preferences, RemoveAKeyThatStandsTwice) {
  store("MemoBPreset", "b");
  writeFile(file(), contentOf(file()) + "MemoAPreset=bytes:61\nMemoAPreset=bytes:62\n");
  EXPECT_EQ(stored("MemoAPreset"), "b");
  PreferenceStore preferences(kId);
  preferences.remove("MemoAPreset");
  ASSERT_TRUE(preferences.synchronise());
  EXPECT_EQ(stored("MemoAPreset"), "missing");
  EXPECT_EQ(stored("MemoBPreset"), "b");
}

TEST_F(Preferences, ShowAnObjectItsOwnChangesAndNobodyElseBeforeTheyAreSynchronised) {
  store("Key", "old");
  {
    PreferenceStore preferences(kId);
    preferences.setBytes("Key", "new", 3);
    std::vector<unsigned char> value;
    ASSERT_TRUE(preferences.getBytes("Key", value));
    EXPECT_EQ(std::string(value.begin(), value.end()), "new");
    EXPECT_EQ(stored("Key"), "old");
    preferences.remove("Key");
    EXPECT_FALSE(preferences.getBytes("Key", value));
  }
  EXPECT_EQ(stored("Key"), "old");
}

TEST_F(Preferences, KeepWhatOthersWroteMeanwhile) {
  PreferenceStore first(kId);
  std::vector<unsigned char> value;
  EXPECT_FALSE(first.getBytes("Other", value));  // first has read
  store("Other", "theirs");
  first.setBytes("Own", "mine", 4);
  ASSERT_TRUE(first.synchronise());
  EXPECT_EQ(stored("Other"), "theirs");
  EXPECT_EQ(stored("Own"), "mine");
}

TEST_F(Preferences, ReadOnceHoweverManyQuestions) {
  store("Key", "value");
  FolderWatch opened(folder(), IN_OPEN);
  const PreferenceStore preferences(kId);
  EXPECT_EQ(opened.count(""), 0);
  std::vector<unsigned char> value;
  char text[16];
  EXPECT_TRUE(preferences.getBytes("Key", value));
  EXPECT_FALSE(preferences.getBytes("Missing", value));
  EXPECT_FALSE(preferences.getString("Key", text, sizeof text));
  EXPECT_EQ(opened.count("product.conf"), 1);
  EXPECT_EQ(opened.count(""), 0);
}

TEST_F(Preferences, PutSeveralChangesInPlaceInOneStep) {
  FolderWatch replaced(folder(), IN_MOVED_TO);
  PreferenceStore preferences(kId);
  preferences.setString("CurrDir", "/a/");
  preferences.setString("CurrBank", "b");
  preferences.setString("CurrPreset", "c");
  ASSERT_TRUE(preferences.synchronise());
  EXPECT_EQ(replaced.count(""), 1);
}

TEST_F(Preferences, WriteNothingWhereNothingDiffers) {
  store("Key", "value");
  FolderWatch written(folder(), IN_MOVED_TO | IN_MODIFY);
  store("Key", "value");
  PreferenceStore preferences(kId);
  preferences.remove("Missing");
  EXPECT_TRUE(preferences.synchronise());
  EXPECT_EQ(written.count(""), 0);
  store("Key", "other");
  EXPECT_GT(written.count(""), 0);
}

TEST_F(Preferences, AreTheUsersAlone) {
  store("Key", "value");
  struct stat status {};
  ASSERT_EQ(stat(file().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(Preferences, MakeTheirFolders) {
  const std::string fresh = temporary / "not/there/yet";
  config.set(fresh.c_str());
  store("Key", "value");
  EXPECT_EQ(stored("Key"), "value");
  EXPECT_TRUE(std::filesystem::exists(fresh + "/maker/product.conf"));
}

TEST_F(Preferences, LieBelowTheHomeFolderWithoutAConfigurationFolder) {
  for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative/path"}) {
    std::filesystem::remove_all(temporary / ".config");
    config.set(unusable);
    const ScopedVariable home("HOME", temporary.path);
    store("Key", "value");
    EXPECT_TRUE(std::filesystem::exists(temporary / ".config/maker/product.conf"));
  }
}

TEST_F(Preferences, AreAbsentWithoutAHome) {
  config.set(nullptr);
  const ScopedVariable home("HOME", nullptr);
  PreferenceStore preferences(kId);
  preferences.setString("CurrDir", "/a/");
  EXPECT_FALSE(preferences.synchronise());
  char text[] = "before";
  EXPECT_FALSE(PreferenceStore(kId).getString("CurrDir", text, sizeof text));
}

TEST_F(Preferences, AreAbsentForAnIdentifierThatIsNoName) {
  for (const char* id : {"", "one", "one.two", "one..three", "one.two.", "../..", "a./../b.c",
                         "one.two/three.four"}) {
    PreferenceStore preferences(id);
    preferences.setString("CurrDir", "/a/");
    EXPECT_FALSE(preferences.synchronise()) << id;
  }
}

TEST_F(Preferences, AreAbsentWhereTheFolderCannotBeMade) {
  writeFile(temporary / "file", "");
  config.set((temporary / "file").c_str());
  PreferenceStore preferences(kId);
  preferences.setString("CurrDir", "/a/");
  EXPECT_FALSE(preferences.synchronise());
  std::vector<unsigned char> value;
  EXPECT_FALSE(PreferenceStore(kId).getBytes("CurrDir", value));
}

TEST_F(Preferences, AreReadAndNotWrittenInAFolderThatMayNotBeWritten) {
  store("Key", "value");
  chmod(file().c_str(), 0644);
  chmod(folder().c_str(), 0555);
  chmod(temporary.path.c_str(), 0555);
  asNobody([&] {
    EXPECT_EQ(stored("Key"), "value");
    PreferenceStore preferences(kId);
    preferences.setBytes("Key", "new", 3);
    EXPECT_FALSE(preferences.synchronise());
  });
  chmod(temporary.path.c_str(), 0755);
  chmod(folder().c_str(), 0755);
  EXPECT_EQ(stored("Key"), "value");
}

TEST_F(Preferences, LeaveAFileAloneThatTheyMayNotRead) {
  store("Key", "value");
  chmod(file().c_str(), 0000);
  chmod((file() + ".lock").c_str(), 0666);
  chmod(folder().c_str(), 0777);
  chmod(temporary.path.c_str(), 0755);
  asNobody([&] {
    PreferenceStore preferences(kId);
    preferences.setBytes("Other", "new", 3);
    EXPECT_FALSE(preferences.synchronise());
  });
  chmod(file().c_str(), 0600);
  EXPECT_EQ(stored("Key"), "value");
}

TEST_F(Preferences, KeepADamagedFileAsideWhenTheyWrite) {
  constexpr char kDamaged[] = "[Preferences\nKey=bytes:00\n\0\xff\xfe";
  const std::string damaged(kDamaged, sizeof kDamaged);
  writeFile(file(), damaged);
  EXPECT_EQ(stored("Key"), "missing");
  EXPECT_EQ(contentOf(file()), damaged);  // reading moves nothing
  store("Key", "value");
  EXPECT_EQ(stored("Key"), "value");
  EXPECT_EQ(contentOf(file() + ".damaged"), damaged);

  writeFile(file(), "no key file either");
  store("Key", "again");
  EXPECT_EQ(contentOf(file() + ".damaged"), damaged);
  EXPECT_EQ(contentOf(file() + ".damaged-2"), "no key file either");
}

TEST_F(Preferences, MissAValueThatIsDamagedAndKeepTheOthers) {
  store("Good", "value");
  std::string content = contentOf(file());
  content += "Odd=bytes:abc\nForeign=bytes:0g\nUnmarked=abcd\nBroken=string:%zz\nCut=string:%4\n";
  writeFile(file(), content);
  EXPECT_EQ(stored("Good"), "value");
  for (const char* key : {"Odd", "Foreign", "Unmarked"}) EXPECT_EQ(stored(key), "missing") << key;
  char text[16];
  for (const char* key : {"Broken", "Cut"})
    EXPECT_FALSE(PreferenceStore(kId).getString(key, text, sizeof text)) << key;
  store("Odd", "repaired");
  EXPECT_EQ(stored("Odd"), "repaired");
  EXPECT_EQ(stored("Good"), "value");
}

TEST_F(Preferences, TakeAnEmptyFileForNoValues) {
  writeFile(file(), "");
  EXPECT_EQ(stored("Key"), "missing");
  store("Key", "value");
  EXPECT_EQ(stored("Key"), "value");
  EXPECT_FALSE(std::filesystem::exists(file() + ".damaged"));
}

TEST_F(Preferences, KeepAFileAsideThatIsFarTooLarge) {
  writeFile(file(), "");
  std::filesystem::resize_file(file(), std::uintmax_t{1} << 40);  // 1 TiB, all of it a hole
  EXPECT_EQ(stored("Key"), "missing");
  store("Key", "value");
  EXPECT_EQ(stored("Key"), "value");
  EXPECT_EQ(std::filesystem::file_size(file() + ".damaged"), std::uintmax_t{1} << 40);
}

TEST_F(Preferences, RefuseMoreThanTheyCanReadBack) {
  store("Key", "value");
  const std::string huge(1 << 20, 'x');
  PreferenceStore preferences(kId);
  preferences.setBytes("Huge", huge.data(), huge.size());
  EXPECT_FALSE(preferences.synchronise());
  EXPECT_EQ(stored("Key"), "value");
}

TEST_F(Preferences, DoNotWaitForAPipeInPlaceOfTheFile) {
  ASSERT_EQ(mkfifo(file().c_str(), 0600), 0);
  EXPECT_EQ(stored("Key"), "missing");
}

TEST_F(Preferences, GiveUpOnALockThatIsNeverReleased) {
  store("Key", "value");
  const int lock = open((file() + ".lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(lock, LOCK_EX), 0);
  const auto begin = std::chrono::steady_clock::now();
  PreferenceStore preferences(kId);
  preferences.setBytes("Key", "new", 3);
  EXPECT_FALSE(preferences.synchronise());
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
  EXPECT_EQ(stored("Key"), "value");
  close(lock);
  EXPECT_TRUE(preferences.synchronise());
  EXPECT_EQ(stored("Key"), "new");
}

}  // namespace
