// What the outputs of several inputs are called.
#include "host/convert/outputnames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using testing::ElementsAre;

std::vector<std::string> namesOf(const std::vector<std::filesystem::path>& files,
                                 const OutputNaming& naming = {}) {
  std::vector<FoundInput> inputs;
  for (const auto& file : files) inputs.push_back({file, {}});
  std::vector<std::string> names;
  for (const auto& name : outputNames(inputs, naming)) names.push_back(name.string());
  return names;
}

}  // namespace

TEST(OutputNames, AreThoseOfTheInputs) {
  EXPECT_THAT(namesOf({"/x/a.wav", "/y/b.AIFF", "/y/c.ape"}),
              ElementsAre("a.wav", "b.AIFF", "c.wav"));
  EXPECT_THAT(namesOf({"a.b.wav", ".wav.wav"}, {"-x", {}}), ElementsAre("a.b-x.wav", ".wav-x.wav"));
}

TEST(OutputNames, GetTheFoldersThatTellThemApart) {
  EXPECT_THAT(namesOf({"/x/a.wav", "/y/a.wav", "/x/b.wav"}),
              ElementsAre("x/a.wav", "y/a.wav", "b.wav"));
  EXPECT_THAT(namesOf({"/1/x/a.wav", "/2/x/a.wav", "/3/y/a.wav"}),
              ElementsAre("1/x/a.wav", "2/x/a.wav", "3/y/a.wav"));
  EXPECT_THAT(namesOf({"/a.wav", "/x/a.wav"}), ElementsAre("a.wav", "x/a.wav"));
  EXPECT_THAT(namesOf({"/x/a.wav", "/y/./z/../a.wav"}), ElementsAre("x/a.wav", "y/a.wav"))
      << "a folder counts, not its spelling";
}

TEST(OutputNames, KeepTheExtensionThatTellsThemApart) {
  EXPECT_THAT(namesOf({"a.wav", "a.ape", "a.flac"}), ElementsAre("a.wav", "a.ape.wav", "a.flac"));
  EXPECT_THAT(namesOf({"a.ape", "a.voc"}, {"-x", {}}), ElementsAre("a.ape-x.wav", "a.voc-x.wav"));
  EXPECT_THAT(namesOf({"/x/a.ape", "/y/a.ape", "/y/a.wav"}),
              ElementsAre("x/a.wav", "y/a.ape.wav", "y/a.wav"));
}

TEST(OutputNames, HaveTheTypeThatIsNamed) {
  EXPECT_THAT(namesOf({"a.wav", "b.mp3", "c.FLAC"}, {"", "flac"}),
              ElementsAre("a.flac", "b.flac", "c.FLAC"));
  EXPECT_THAT(namesOf({"a.wav", "a.aiff", "a.flac"}, {"", "flac"}),
              ElementsAre("a.wav.flac", "a.aiff.flac", "a.flac"));
  EXPECT_THAT(namesOf({"a.mp3", "b.mp3"}, {"-x", "mp3"}), ElementsAre("a-x.mp3", "b-x.mp3"));
}

TEST(OutputNames, DoNotDependOnTheOrder) {
  std::vector<std::filesystem::path> files = {"/1/x/a.ape", "/2/x/a.wav", "/2/x/a.ape", "/1/b.wav"};
  const auto reference = namesOf(files);
  std::reverse(files.begin(), files.end());
  auto reversed = namesOf(files);
  std::reverse(reversed.begin(), reversed.end());
  EXPECT_EQ(reversed, reference);
}

TEST(OutputNames, GivePicturesOneEach) {
  EXPECT_THAT(pictureNames({"a.wav", "b.wav", "x/a.wav"}),
              ElementsAre("a.png", "b.png", "x/a.png"));
  EXPECT_THAT(pictureNames({"a.wav", "a.flac"}), ElementsAre("a.wav.png", "a.flac.png"));
}
