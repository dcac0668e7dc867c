// Between the effect and the file: latency, and where the output ends.
#include "host/sound/outputstage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

// An effect that is late and then rings, and the frames that come out of the stage.
class Stage {
 public:
  Stage(std::int64_t latency, const TailPlan& plan)
      : stage([this](const double* l, const double* r, int frames) { take(l, r, frames); }, latency,
              plan) {}

  // signal: everything the effect would put out if it were fed for ever; silence after its end.
  std::vector<double> run(const std::vector<double>& signal, std::int64_t inputFrames, int block) {
    std::int64_t position = 0;
    const auto feed = [&](std::int64_t frames) {
      for (const Change& change : changes) {
        if (change.at >= position && change.at < position + frames)
          stage.setLatency(change.latency);
      }
      std::vector<double> piece(static_cast<std::size_t>(frames));
      for (std::size_t i = 0; i < piece.size(); ++i) {
        const auto from = static_cast<std::size_t>(position) + i;
        piece[i] = from < signal.size() ? signal[from] : 0.0;
      }
      position += frames;
      stage.accept(piece.data(), piece.data(), static_cast<int>(frames));
    };
    while (position < inputFrames) feed(std::min<std::int64_t>(block, inputFrames - position));
    stage.endOfInput(inputFrames);
    while (!stage.complete()) feed(std::min<std::int64_t>(block, stage.framesWanted()));
    return out;
  }

  // Announced in the block that holds the frame `at`.
  struct Change {
    std::int64_t at;
    std::int64_t latency;
  };
  std::vector<Change> changes;

 private:
  void take(const double* l, const double* r, int frames) {
    EXPECT_TRUE(std::equal(l, l + frames, r));
    out.insert(out.end(), l, l + frames);
  }

  OutputStage stage;
  std::vector<double> out;
};

std::vector<double> ramp(int first, int frames) {
  std::vector<double> values;
  values.reserve(static_cast<std::size_t>(frames));
  for (int i = 0; i < frames; ++i) values.push_back(first + i);
  return values;
}

constexpr int kBlocks[] = {1, 7, 64, 5000};

}  // namespace

TEST(OutputStage, HandsOnAsManyFramesAsThereWasInput) {
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(0, {}).run(ramp(1, 1000), 100, block), ramp(1, 100)) << block;
  }
}

TEST(OutputStage, TakesTheLatencyAway) {
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(30, {}).run(ramp(1, 1000), 100, block), ramp(31, 100)) << block;
    EXPECT_EQ(Stage(300, {}).run(ramp(1, 1000), 100, block), ramp(301, 100))
        << "longer than the input, " << block;
  }
}

TEST(OutputStage, AddsATailOfTheLengthAsked) {
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(0, {false, 50, 0}).run(ramp(1, 1000), 100, block), ramp(1, 150)) << block;
    EXPECT_EQ(Stage(30, {false, 50, 0}).run(ramp(1, 1000), 100, block), ramp(31, 150)) << block;
  }
}

TEST(OutputStage, EndsAnAutomaticTailAfterTheLastSound) {
  std::vector<double> signal(200, 0.0);
  signal[10] = 1.0;
  signal[140] = 0.5;   // a gap of 40 frames after the input, shorter than the silence that ends it
  signal[150] = 1e-9;  // below the silence limit
  std::vector<double> expected(signal.begin(), signal.begin() + 141);
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(0, {true, 1000, 60}).run(signal, 100, block), expected) << block;
  }
}

TEST(OutputStage, NeverCutsTheInputsOwnSilence) {
  const std::vector<double> silence(100, 0.0);
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(0, {true, 1000, 60}).run({}, 100, block), silence) << block;
  }
}

TEST(OutputStage, TakesAGapThatIsTooLongForTheEnd) {
  std::vector<double> signal(400, 0.0);
  signal[99] = 1.0;
  signal[161] = 0.5;  // 61 silent frames in between
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(0, {true, 1000, 61}).run(signal, 100, block).size(), 100U) << block;
    EXPECT_EQ(Stage(0, {true, 1000, 62}).run(signal, 100, block).size(), 162U) << block;
  }
}

TEST(OutputStage, EndsATailThatNeverFallsSilent) {
  const std::vector<double> hum(5000, 0.1);
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(0, {true, 300, 60}).run(hum, 100, block).size(), 400U) << block;
  }
}

TEST(OutputStage, TakesALatencyAwayThatIsToldWithTheFirstBlock) {
  for (const int block : kBlocks) {
    Stage late(0, {});
    late.changes = {{0, 30}};
    EXPECT_EQ(late.run(ramp(1, 1000), 100, block), ramp(31, 100)) << block;
    Stage earlier(300, {});
    earlier.changes = {{0, 30}};
    EXPECT_EQ(earlier.run(ramp(1, 1000), 100, block), ramp(31, 100))
        << "less than it named before, " << block;
  }
}

// The effect repeats frames 31 to 40 as frames 41 to 50, because it is late by 10 more
// from there on.
TEST(OutputStage, DropsWhatAnEffectRepeatsThatBecomesLater) {
  std::vector<double> signal = ramp(1, 40);
  const std::vector<double> rest = ramp(31, 500);
  signal.insert(signal.end(), rest.begin(), rest.end());
  for (const int block : {1, 8, 40}) {
    Stage stage(0, {});
    stage.changes = {{40, 10}};
    EXPECT_EQ(stage.run(signal, 100, block), ramp(1, 100)) << block;
    Stage withTail(0, {false, 50, 0});
    withTail.changes = {{40, 10}};
    EXPECT_EQ(withTail.run(signal, 100, block), ramp(1, 150)) << block;
  }
}

// Late by 10 frames, and then by none: frames 31 to 40 never come.
TEST(OutputStage, KeepsThePlaceOfWhatAnEffectLeapsOver) {
  std::vector<double> signal(10, 0.0);
  for (const std::vector<double>& part : {ramp(1, 30), ramp(41, 500)}) {
    signal.insert(signal.end(), part.begin(), part.end());
  }
  std::vector<double> expected = ramp(1, 100);
  std::fill(expected.begin() + 30, expected.begin() + 40, 0.0);
  for (const int block : {1, 8, 40}) {
    Stage stage(10, {});
    stage.changes = {{40, 0}};
    EXPECT_EQ(stage.run(signal, 100, block), expected) << block;
  }
}

TEST(OutputStage, CountsSeveralChangesTogether) {
  for (const int block : kBlocks) {
    Stage stage(5, {});
    stage.changes = {{0, 50}, {0, 20}, {0, 30}};
    EXPECT_EQ(stage.run(ramp(1, 1000), 100, block), ramp(31, 100)) << block;
  }
}

// Announced while the effect is fed silence: what it still owes comes all the same, and no frame
// too many.
TEST(OutputStage, KeepsTheLengthWhenTheLatencyChangesAfterTheInput) {
  for (const std::int64_t later : {0, 90}) {
    Stage stage(50, {});
    stage.changes = {{120, later}};
    EXPECT_EQ(stage.run(ramp(1, 1000), 100, 10).size(), 100U) << later;
    Stage automatic(50, {true, 1000, 60});
    automatic.changes = {{120, later}};
    EXPECT_EQ(automatic.run({}, 100, 10).size(), 100U) << later;
  }
}
