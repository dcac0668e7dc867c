// The file of an effect's state, which tells whose it is.
#include "host/state/savedstate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/program.h"

namespace {

using testing::HasSubstr;

class SavedStates : public ProgramTest {
 protected:
  Outcome withChunks(std::vector<std::string> words, const std::string& effect) {
    words.insert(words.end(), {"--plugin", plugin(effect)});
    return widen(words, {{{"WIDEN_TEST_CHUNKS", "yes"}, {"WIDEN_TEST_CHUNK", ""}}});
  }
  void save(const std::string& file, const std::string& depth) {
    const Outcome outcome =
        withChunks({"--set", "Depth=" + depth, "--save-state", file, "-f"}, "bank");
    EXPECT_EQ(outcome.status, 0) << outcome.error;
  }
};

// The effect bank has the number 'Bank' and no name.
constexpr const char* kLine = "widen-state 42616E6B bank.so\n";

}  // namespace

TEST_F(SavedStates, BeginWithTheNumberAndTheNameOfTheEffect) {
  save("s", "0.25");
  EXPECT_TRUE(textOf(in("s")).starts_with(std::string(kLine) + "B")) << "then its chunk";
  const Outcome restored = withChunks({"--state", "s", "--list-params"}, "bank");
  EXPECT_THAT(restored.out, HasSubstr("0.250000"));
}

TEST_F(SavedStates, AreTakenByNoOtherEffect) {
  save("s", "0.25");
  ASSERT_EQ(widen({"--save-state", "t"}).status, 0);
  expectRefusal(withChunks({"--state", "s", "--list-params"}, "badchunk"), 1,
                "s: is a state of bank.so, not of badchunk.so");
  expectRefusal(widen({"--state", "s", "--list-params"}), 1,
                "s: is a state of bank.so, not of Orv Trelvan");
  expectRefusal(withChunks({"--state", "t", "--list-params"}, "badchunk"), 1,
                "t: is a state of Trelvan, not of badchunk.so");
}

TEST_F(SavedStates, AreTheirChunkAloneWhereThatTellsWhoseItIs) {
  ASSERT_EQ(widen({"--save-state", "t", "--preset", "3"}).status, 0);
  EXPECT_EQ(std::filesystem::file_size(in("t")), 10545U) << "as hosts have it";
  EXPECT_THAT(widen({"--state", "t", "--list-presets"}).out, HasSubstr("*  3"));
}

// Another program saved it, or a widen that did not know better.
TEST_F(SavedStates, MayBeAChunkWithoutALine) {
  save("s", "0.75");
  writeText(in("raw"), textOf(in("s")).substr(std::string(kLine).size()));
  EXPECT_THAT(withChunks({"--state", "raw", "--list-params"}, "bank").out, HasSubstr("0.750000"));
}

TEST_F(SavedStates, AreChunksWhereTheirLineIsNone) {
  for (const std::string text :
       {"widen-state ", "widen-state 42616E6B bank.so", "widen-state 42616E6 bank.so\nB",
        "widen-state 4261XX6B bank.so\nB", "widen-state 42616E6B\nB"}) {
    writeText(in("s"), text);
    EXPECT_EQ(withChunks({"--state", "s", "--list-params"}, "badchunk").status, 0)
        << text << ": an effect that takes anything got it";
  }
}
