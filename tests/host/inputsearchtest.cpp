// The sound files that the inputs of a command line stand for.
#include "host/convert/inputsearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/host/foldertest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class InputSearch : public FolderTest {
 protected:
  void put(const std::string& file) const {
    std::filesystem::create_directories(in(file).parent_path());
    writeText(in(file), "");
  }

  // "path below", in order.
  std::vector<std::string> found(const std::vector<std::string>& named,
                                 const std::filesystem::path& outputs = {}) {
    std::vector<std::string> inputs;
    for (const std::string& name : named) inputs.push_back(in(name).string());
    result = findInputs(inputs, outputs);
    std::vector<std::string> texts;
    for (const FoundInput& input : result.files) {
      texts.push_back(input.file.lexically_relative(folder).string() + " " + input.below.string());
    }
    return texts;
  }

  FoundInputs result;
};

}  // namespace

TEST_F(InputSearch, TakesAFileForItselfThereOrNot) {
  put("notes.txt");
  EXPECT_THAT(found({"notes.txt", "missing.wav"}), ElementsAre("notes.txt ", "missing.wav "));
}

TEST_F(InputSearch, FindsTheSoundFilesOfAFolderByNameAtEveryDepth) {
  for (const char* file :
       {"takes/b.WAV", "takes/a.flac", "takes/notes.txt", "takes/z/y/c.mp3", "takes/d.png"})
    put(file);
  EXPECT_THAT(found({"takes"}),
              ElementsAre("takes/a.flac ", "takes/b.WAV ", "takes/z/y/c.mp3 z/y"));
  EXPECT_THAT(found({"takes/"}).size(), 3U);
}

TEST_F(InputSearch, LeavesHiddenFilesAndFoldersOut) {
  for (const char* file : {"takes/a.wav", "takes/._a.wav", "takes/.old/b.wav"}) put(file);
  EXPECT_THAT(found({"takes"}), ElementsAre("takes/a.wav "));
  EXPECT_THAT(found({"takes/.old"}), ElementsAre("takes/.old/b.wav ")) << "it is asked for";
}

TEST_F(InputSearch, KeepsTheNamesOfSeveralFolders) {
  for (const char* file : {"x/a.wav", "y/deep/a.wav", "c.wav"}) put(file);
  EXPECT_THAT(found({"x", "y/", "c.wav"}),
              ElementsAre("x/a.wav x", "y/deep/a.wav y/deep", "c.wav "));
}

TEST_F(InputSearch, FollowsLinksToFilesButNotToFolders) {
  put("takes/a.wav");
  put("elsewhere/b.wav");
  std::filesystem::create_symlink(in("elsewhere/b.wav"), in("takes/link.wav"));
  std::filesystem::create_directory_symlink("..", in("takes/round"));
  EXPECT_THAT(found({"takes"}), ElementsAre("takes/a.wav ", "takes/link.wav "));
  EXPECT_THAT(found({"takes/round"}).size(), 3U) << "one that is named is followed";
}

TEST_F(InputSearch, TellsOfPipesInAFolderInsteadOfWaitingForThem) {
  put("takes/a.wav");
  ASSERT_EQ(mkfifo(in("takes/b.wav").c_str(), 0600), 0);
  ASSERT_EQ(mkfifo(in("c.wav").c_str(), 0600), 0);
  EXPECT_THAT(found({"takes", "c.wav"}), ElementsAre("takes/a.wav takes", "c.wav "))
      << "one that is named is wanted";
  EXPECT_THAT(result.failures, ElementsAre(in("takes/b.wav").string() + ": is no regular file"));
}

TEST_F(InputSearch, DoesNotSearchWhereTheResultsGo) {
  for (const char* file : {"takes/a.wav", "takes/wide/a.wav"}) put(file);
  EXPECT_THAT(found({"takes"}, in("takes/wide")), ElementsAre("takes/a.wav "));
  EXPECT_THAT(found({"takes"}, in("takes")).size(), 2U) << "what is named is searched";
}

TEST_F(InputSearch, TellsOfFoldersWithoutSound) {
  std::filesystem::create_directory(in("empty"));
  EXPECT_THAT(found({"empty"}), IsEmpty());
  EXPECT_THAT(result.failures, ElementsAre(HasSubstr("empty: a folder without sound files")));
}

TEST_F(InputSearch, TellsOfFoldersThatCannotBeReadAndGoesOn) {
  if (geteuid() == 0) GTEST_SKIP() << "root may read everywhere";
  for (const char* file : {"takes/closed/a.wav", "takes/open/b.wav"}) put(file);
  chmod(in("takes/closed").c_str(), 0);
  EXPECT_THAT(found({"takes"}), ElementsAre("takes/open/b.wav open"));
  EXPECT_THAT(result.failures, ElementsAre(HasSubstr("closed: cannot be read (Permission")));
  chmod(in("takes/closed").c_str(), 0700);
}
