// Which files a run reads and writes.
#include "host/convert/jobs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/foldertest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class JobPlans : public FolderTest {
 protected:
  Arguments arguments(const std::vector<std::string>& inputs, const std::string& output) const {
    Arguments made;
    for (const std::string& input : inputs) made.inputs.push_back(in(input).string());
    made.output = in(output).string() + (output.ends_with('/') ? "/" : "");
    return made;
  }

  static std::string refusalOf(const Arguments& made, ExitStatus status) {
    try {
      planJobs(made);
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.status(), status);
      return failure.what();
    }
    return "accepted";
  }
};

}  // namespace

TEST_F(JobPlans, GiveOneInputTheFileThatIsNamed) {
  const Jobs jobs = planJobs(arguments({"a.wav"}, "b.flac"));
  ASSERT_EQ(jobs.list.size(), 1U);
  EXPECT_EQ(jobs.list[0].input, in("a.wav"));
  EXPECT_EQ(jobs.list[0].output, in("b.flac"));
  EXPECT_EQ(jobs.list[0].plot, std::nullopt);
  EXPECT_THAT(jobs.foldersToBeMade, IsEmpty());
}

TEST_F(JobPlans, PutOneInputIntoAFolderThatIsThere) {
  std::filesystem::create_directory(in("out"));
  EXPECT_EQ(planJobs(arguments({"a.wav"}, "out")).list[0].output, in("out") / "a.wav");
}

TEST_F(JobPlans, TakeATrailingSlashForAFolder) {
  const Jobs jobs = planJobs(arguments({"a.wav"}, "out/"));
  EXPECT_EQ(jobs.list[0].output.lexically_normal(), in("out") / "a.wav");
  EXPECT_EQ(jobs.foldersToBeMade.size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(in("out"))) << "planning changes nothing";
}

TEST_F(JobPlans, PutSeveralInputsIntoAFolderUnderTheirNames) {
  Arguments several = arguments({"a.wav", "b.AIFF", "c.mp3"}, "out");
  several.plot = in("pictures").string();
  const Jobs jobs = planJobs(several);
  ASSERT_EQ(jobs.list.size(), 3U);
  EXPECT_EQ(jobs.list[0].output, in("out") / "a.wav");
  EXPECT_EQ(jobs.list[1].output, in("out") / "b.AIFF");
  EXPECT_EQ(jobs.list[2].output, in("out") / "c.wav") << "not encoded once more";
  EXPECT_EQ(jobs.list[2].plot, in("pictures") / "c.png");
  EXPECT_THAT(jobs.foldersToBeMade, ElementsAre(in("out"), in("pictures")));
}

TEST_F(JobPlans, RefuseAFileWhereAFolderIsNeeded) {
  writeText(in("out"), "");
  EXPECT_THAT(refusalOf(arguments({"a.wav", "b.wav"}, "out"), ExitStatus::failed),
              HasSubstr("is not a folder"));
}

TEST_F(JobPlans, RefuseAnOutputThatIsAnInput) {
  writeText(in("a.wav"), "");
  std::filesystem::create_symlink("a.wav", in("link.wav"));
  std::filesystem::create_hard_link(in("a.wav"), in("twin.wav"));
  std::filesystem::create_directory(in("sub"));
  for (const char* output : {"a.wav", "./a.wav", "sub/../a.wav", "link.wav", "twin.wav", "."}) {
    EXPECT_THAT(refusalOf(arguments({"a.wav"}, output), ExitStatus::wrongUsage),
                HasSubstr("is an input"))
        << output;
  }
  EXPECT_THAT(refusalOf(arguments({"missing.wav"}, "missing.wav"), ExitStatus::wrongUsage),
              HasSubstr("is an input"));
}

TEST_F(JobPlans, RefuseTwoOutputsOfOneName) {
  EXPECT_THAT(refusalOf(arguments({"x/a.wav", "y/a.wav"}, "out"), ExitStatus::wrongUsage),
              HasSubstr("would be written for both"));
  EXPECT_THAT(refusalOf(arguments({"a.wav", "a.mp3"}, "out"), ExitStatus::wrongUsage),
              HasSubstr("for both"));
  EXPECT_THAT(refusalOf(arguments({"a.wav", "a.wav"}, "out"), ExitStatus::wrongUsage),
              HasSubstr("for both"));
  Arguments plots = arguments({"a.wav", "a.aiff"}, "out");
  EXPECT_EQ(refusalOf(plots, ExitStatus::wrongUsage), "accepted");
  plots.plot = in("out").string();
  EXPECT_THAT(refusalOf(plots, ExitStatus::wrongUsage),
              HasSubstr("a.png: would be written for both"));
}

TEST_F(JobPlans, RefuseOutputsOfAnUnknownKind) {
  for (const char* output : {"b.au", "b", "b.orv"}) {
    EXPECT_THAT(refusalOf(arguments({"a.wav"}, output), ExitStatus::wrongUsage),
                HasSubstr("unknown kind"))
        << output;
  }
  Arguments flac = arguments({"a.wav"}, "b.flac");
  flac.format = SampleFormat::float32;
  EXPECT_THAT(refusalOf(flac, ExitStatus::wrongUsage), HasSubstr("FLAC cannot hold float samples"));
}

TEST_F(JobPlans, GiveAFoldersFilesTheTypeThatIsAsked) {
  Arguments several = arguments({"a.wav", "b.AIF", "c.mp3", "d"}, "out");
  const auto nameAt = [&](std::size_t index) {
    return planJobs(several).list.at(index).output.filename().string();
  };
  several.type = "mp3";
  EXPECT_EQ(nameAt(0), "a.mp3");
  EXPECT_EQ(nameAt(2), "c.mp3");
  EXPECT_EQ(nameAt(3), "d.mp3");
  several.type = "aiff";
  EXPECT_EQ(nameAt(0), "a.aiff");
  EXPECT_EQ(nameAt(1), "b.AIF") << "it is one";
  Arguments file = arguments({"a.wav"}, "b.wave");
  file.type = "wav";
  EXPECT_EQ(refusalOf(file, ExitStatus::wrongUsage), "accepted");
  file.type = "flac";
  EXPECT_THAT(refusalOf(file, ExitStatus::wrongUsage), HasSubstr("b.wave: is not of --type flac"));
}

TEST_F(JobPlans, RefuseWhatALossyTypeHasNotAndTheOthersToo) {
  Arguments lossy = arguments({"a.wav"}, "b.ogg");
  lossy.quality = 5.0;
  EXPECT_EQ(refusalOf(lossy, ExitStatus::wrongUsage), "accepted");
  lossy.format = SampleFormat::pcm16;
  EXPECT_THAT(refusalOf(lossy, ExitStatus::wrongUsage),
              HasSubstr("Ogg Vorbis has no sample format; leave --format out"));
  Arguments plain = arguments({"a.wav"}, "b.flac");
  plain.quality = 5.0;
  EXPECT_THAT(refusalOf(plain, ExitStatus::wrongUsage),
              HasSubstr("FLAC is not lossy; leave --quality out"));
}

TEST_F(JobPlans, WantPicturesToBePng) {
  Arguments plot = arguments({"a.wav"}, "b.wav");
  plot.plot = in("c.jpg").string();
  EXPECT_THAT(refusalOf(plot, ExitStatus::wrongUsage), HasSubstr("name it .png"));
  plot.plot = in("c.PNG").string();
  EXPECT_EQ(planJobs(plot).list[0].plot, in("c.PNG"));
}
