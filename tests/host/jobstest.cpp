// Which files a run reads and writes.
#include "host/convert/jobs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

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
  EXPECT_THAT(refusalOf(arguments({"a.wav", "a.wav"}, "out"), ExitStatus::wrongUsage),
              HasSubstr("for both"));
  EXPECT_THAT(refusalOf(arguments({"a.ape", "./a.ape"}, "out"), ExitStatus::wrongUsage),
              HasSubstr("for both"));
  Arguments plots = arguments({"a.aiff"}, "out/a.wav");
  plots.plot = in("out/a.wav.png").string();
  EXPECT_EQ(refusalOf(plots, ExitStatus::wrongUsage), "accepted");
  plots.output = in("out/x.wav").string();
  std::filesystem::create_directory(in("out"));
  writeText(in("out/x.wav"), "");
  std::filesystem::create_symlink("x.wav", in("out/link.png"));
  plots.plot = in("out/link.png").string();
  EXPECT_THAT(refusalOf(plots, ExitStatus::wrongUsage),
              HasSubstr("link.png: would be written for both"));
}

TEST_F(JobPlans, TellEqualNamesApart) {
  Arguments twice = arguments({"x/a.wav", "y/a.wav", "y/a.ape", "y/a.flac"}, "out");
  twice.plot = in("out").string();
  const Jobs jobs = planJobs(twice);
  ASSERT_EQ(jobs.list.size(), 4U);
  EXPECT_EQ(jobs.list[0].output, in("out") / "x/a.wav");
  EXPECT_EQ(jobs.list[1].output, in("out") / "y/a.wav");
  EXPECT_EQ(jobs.list[2].output, in("out") / "y/a.ape.wav");
  EXPECT_EQ(jobs.list[3].output, in("out") / "a.flac");
  EXPECT_EQ(jobs.list[1].plot, in("out") / "y/a.png");
  EXPECT_EQ(jobs.list[3].plot, in("out") / "a.png");
  EXPECT_THAT(jobs.foldersToBeMade, ElementsAre(in("out"), in("out") / "x", in("out") / "y"));
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

TEST_F(JobPlans, KeepTheTreeOfAFolder) {
  std::filesystem::create_directories(in("takes/day 1/late"));
  for (const char* file : {"takes/a.wav", "takes/day 1/b.flac", "takes/day 1/late/c.wav"})
    writeText(in(file), "");
  Arguments tree = arguments({"takes"}, "out");
  tree.plot = in("pictures").string();
  const Jobs jobs = planJobs(tree);
  ASSERT_EQ(jobs.list.size(), 3U);
  EXPECT_EQ(jobs.list[0].output, in("out") / "a.wav");
  EXPECT_EQ(jobs.list[1].output, in("out") / "day 1/b.flac");
  EXPECT_EQ(jobs.list[2].output, in("out") / "day 1/late/c.wav");
  EXPECT_EQ(jobs.list[2].plot, in("pictures") / "day 1/late/c.png");
  EXPECT_THAT(jobs.foldersToBeMade,
              ElementsAre(in("out"), in("out") / "day 1", in("out") / "day 1/late", in("pictures"),
                          in("pictures") / "day 1", in("pictures") / "day 1/late"))
      << "each after the one it lies in";
}

TEST_F(JobPlans, WantAFolderForAFolder) {
  std::filesystem::create_directory(in("takes"));
  writeText(in("takes/a.wav"), "");
  for (const auto& inputs : {std::vector<std::string>{"takes"}, {"a.wav", "b.wav"}}) {
    EXPECT_THAT(refusalOf(arguments(inputs, "out.wav"), ExitStatus::wrongUsage),
                HasSubstr("out.wav: several files go into a folder"));
    EXPECT_EQ(refusalOf(arguments(inputs, "out.wav/"), ExitStatus::wrongUsage), "accepted");
  }
}

TEST_F(JobPlans, TakeFoldersThatCannotBeReadForFailures) {
  std::filesystem::create_directory(in("empty"));
  const Jobs jobs = planJobs(arguments({"empty", "a.wav"}, "out"));
  EXPECT_EQ(jobs.list.size(), 1U);
  EXPECT_THAT(jobs.failures, ElementsAre(HasSubstr("empty: a folder without sound files")));
}

TEST_F(JobPlans, PutASuffixBeforeTheExtension) {
  Arguments suffixed = arguments({"x/a.wav", "b.ape"}, "out");
  suffixed.suffix = " wide";
  suffixed.plot = in("out").string();
  const Jobs jobs = planJobs(suffixed);
  EXPECT_EQ(jobs.list[0].output, in("out") / "a wide.wav");
  EXPECT_EQ(jobs.list[0].plot, in("out") / "a wide.png");
  EXPECT_EQ(jobs.list[1].output, in("out") / "b wide.wav");
  Arguments named = arguments({"a.wav"}, "b.wav");
  named.suffix = "-wide";
  EXPECT_THAT(refusalOf(named, ExitStatus::wrongUsage), HasSubstr("is a whole name"));
}

TEST_F(JobPlans, PutOutputsBesideTheirInputsWhereOnlyASuffixIsNamed) {
  std::filesystem::create_directories(in("takes/late"));
  writeText(in("takes/late/c.wav"), "");
  Arguments beside = arguments({"takes", "x/a.wav", "y/a.wav", "y/a.ape"}, "");
  beside.output.reset();
  beside.suffix = "-wide";
  const Jobs jobs = planJobs(beside);
  ASSERT_EQ(jobs.list.size(), 4U);
  EXPECT_EQ(jobs.list[0].output, in("takes/late/c-wide.wav"));
  EXPECT_EQ(jobs.list[1].output, in("x/a-wide.wav"));
  EXPECT_EQ(jobs.list[2].output, in("y/a-wide.wav"));
  EXPECT_EQ(jobs.list[3].output, in("y/a.ape-wide.wav"));
  EXPECT_THAT(jobs.foldersToBeMade, IsEmpty());
}

TEST_F(JobPlans, KnowNoPlaceBesideTheStandardInput) {
  Arguments beside;
  beside.inputs = {"-"};
  beside.suffix = "-wide";
  EXPECT_THAT(refusalOf(beside, ExitStatus::wrongUsage), HasSubstr("has no name"));
}

TEST_F(JobPlans, LeaveOutWhatAnEarlierRunHasMadeBesideItsInput) {
  for (const char* file : {"a.wav", "a-wide.wav", "b-wide.wav"}) writeText(in(file), "");
  Arguments beside = arguments({"a.wav", "a-wide.wav", "b-wide.wav"}, "");
  beside.output.reset();
  beside.suffix = "-wide";
  const Jobs jobs = planJobs(beside);
  ASSERT_EQ(jobs.list.size(), 2U);
  EXPECT_EQ(jobs.list[0].output, in("a-wide.wav"));
  EXPECT_EQ(jobs.list[1].output, in("b-wide-wide.wav")) << "nothing here made it";
  EXPECT_THAT(jobs.notes, ElementsAre(HasSubstr("a-wide.wav: left out (it is the result of")));
}

TEST_F(JobPlans, LetAFileOfSeveralFailByItself) {
  Arguments floats = arguments({"a.wav", "b.flac", "c.wav"}, "out");
  floats.format = SampleFormat::float32;
  const Jobs jobs = planJobs(floats);
  ASSERT_EQ(jobs.list.size(), 3U);
  EXPECT_EQ(jobs.list[0].refusal, "");
  EXPECT_THAT(jobs.list[1].refusal, HasSubstr("FLAC cannot hold float samples"));
  EXPECT_EQ(jobs.list[2].refusal, "");
}

// Each file against each other took half a minute for 1,600, and four times as long for twice as
// many.
TEST_F(JobPlans, TakeThousandsOfFilesInAMoment) {
  std::vector<std::string> inputs;
  for (int i = 0; i < 3000; ++i) {
    inputs.push_back("file" + std::to_string(i) + ".wav");
    writeText(in(inputs.back()), "");
  }
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(planJobs(arguments(inputs, "out")).list.size(), 3000U);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  EXPECT_LT(took.count(), 10.0) << "s; it is a tenth of one, and several under a sanitizer";
}
