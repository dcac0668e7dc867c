// Between the effect and the file: latency, and where the output ends.
#include "host/outputstage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

// An effect that is late and then rings, and the frames that come out of the stage.
class Stage {
 public:
  Stage(std::int64_t latency, const TailPlan& plan)
      : stage([this](const double* l, const double* r, int frames) { take(l, r, frames); }, latency, plan) {}

  // signal: everything the effect would put out if it were fed for ever; silence behind its end.
  std::vector<double> run(const std::vector<double>& signal, std::int64_t inputFrames, int block) {
    std::int64_t position = 0;
    const auto feed = [&](std::int64_t frames) {
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
    EXPECT_EQ(Stage(300, {}).run(ramp(1, 1000), 100, block), ramp(301, 100)) << "longer than the input, " << block;
  }
}

TEST(OutputStage, AddsATailOfTheLengthAsked) {
  for (const int block : kBlocks) {
    EXPECT_EQ(Stage(0, {false, 50, 0}).run(ramp(1, 1000), 100, block), ramp(1, 150)) << block;
    EXPECT_EQ(Stage(30, {false, 50, 0}).run(ramp(1, 1000), 100, block), ramp(31, 150)) << block;
  }
}

TEST(OutputStage, EndsAnAutomaticTailBehindTheLastSound) {
  std::vector<double> signal(200, 0.0);
  signal[10] = 1.0;
  signal[140] = 0.5;   // a gap of 40 frames behind the input, shorter than the silence that ends it
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
