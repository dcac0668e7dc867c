// What a run would do, said instead of done.
#include "host/cli/dryrun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

class DryRuns : public ProgramTest {
 protected:
  DryRuns() {
    for (const char* name : {"a.wav", "b.wav"})
      writeSound(in(name), noise(5000, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  }

  Outcome tried(std::vector<std::string> words) {
    const auto before = names();
    words.emplace_back("--dry-run");
    const Outcome outcome = widen(words);
    EXPECT_EQ(names(), before) << "nothing is written";
    return outcome;
  }
};

}  // namespace

TEST_F(DryRuns, SayWhichFileBecomesWhich) {
  const Outcome outcome = tried({"a.wav", "b.wav", "-o", "out", "--plot", "p"});
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_EQ(outcome.out,
            "a.wav -> out/a.wav, picture p/a.png\nb.wav -> out/b.wav, picture p/b.png\n");
}

TEST_F(DryRuns, SayWhatIsReplacedSkippedAndRefused) {
  std::filesystem::create_directory(in("out"));
  writeText(in("out/a.wav"), "precious");
  EXPECT_EQ(tried({"a.wav", "b.wav", "-o", "out", "-f"}).out,
            "a.wav -> out/a.wav, replaced\nb.wav -> out/b.wav\n");
  EXPECT_EQ(tried({"a.wav", "b.wav", "-o", "out", "--skip-existing"}).out,
            "a.wav: skipped, out/a.wav is already there\nb.wav -> out/b.wav\n");
  const Outcome refused = tried({"a.wav", "b.wav", "-o", "out"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.error, "widen: out/a.wav: is already there (--force replaces it)\n");
  EXPECT_EQ(refused.out, "b.wav -> out/b.wav\n");
  EXPECT_EQ(textOf(in("out/a.wav")), "precious");
}

TEST_F(DryRuns, FindWhatTheRunWouldFailAt) {
  writeText(in("bad.wav"), "no sound");
  expectRefusal(tried({"bad.wav", "-o", "out.wav"}), 1, "bad.wav: not a sound file");
  expectRefusal(tried({"missing.wav", "-o", "out.wav"}), 1, "missing.wav: no such file");
  expectRefusal(tried({"a.wav", "b.wav", "-o", "no/such"}), 1, "no/such: cannot be made");
  expectRefusal(tried({"a.wav", "-o", "no/out.wav"}), 1, "there is no folder no");
  expectRefusal(tried({"a.wav", "-o", "out.wav", "--plot", "no/a.png"}), 1,
                "there is no folder no");
  expectRefusal(tried({"a.wav", "-o", "out.wav", "--preset", "nonsense"}), 1, "no preset");
  expectRefusal(tried({"a.wav", "-o", "out.wav", "--save-state", "b.wav"}), 1,
                "b.wav: is already there");
}

TEST_F(DryRuns, KnowWhatIsSalvaged) {
  std::filesystem::resize_file(in("a.wav"), 10000);
  expectRefusal(tried({"a.wav", "-o", "out.wav"}), 1, "a.wav: ");
  EXPECT_EQ(tried({"a.wav", "-o", "out.wav", "--salvage"}).status, 0);
}

TEST_F(DryRuns, SaveNoState) {
  EXPECT_EQ(tried({"a.wav", "-o", "out.wav", "--save-state", "s"}).status, 0);
}
