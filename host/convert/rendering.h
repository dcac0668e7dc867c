// Takes a sound through a started effect, from its first frame to the end of its tail.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/convert/automation.h"
#include "host/convert/rightchannel.h"
#include "host/options/arguments.h"
#include "host/sound/outputstage.h"
#include "host/sound/soundreader.h"
#include "host/vst/blockrunner.h"
#include "host/vst/effect.h"

// One run, one thread. What comes in and goes out is looked at for values that are no numbers.
class Rendering {
 public:
  using Frames = std::function<void(const double* left, const double* right, int frames)>;

  // s: an effect that never falls silent must not fill the disk
  static constexpr double kLongestAutomaticTail = 30.0;
  // Hz: of sounds with a higher rate it is as many frames, since the silent ones are kept in memory
  // until it is known whether they belong to the tail. Headers name up to 2147483647 Hz.
  static constexpr int kHighestTailRate = 768000;

  // Frames that a tail has at most.
  static std::int64_t mostTailFrames(const TailArgument& asked, int sampleRate);

  // effect, source: outlive it. name: of the source, for messages. output: gets what belongs into
  // the file, as many frames as came in, lined up with them, and the tail.
  Rendering(Effect& startedEffect, SoundReader& source, const Arguments& arguments,
            bool doublePrecision, std::string name, Frames output);

  // Gets what comes in, each block before the effect has it.
  void watchInput(Frames watcher) { inputWatchers.push_back(std::move(watcher)); }
  // Gets how many frames came in, now and then.
  void watchProgress(std::function<void(std::int64_t)> watcher) { progress = std::move(watcher); }

  // Returns how many frames came in. Throws Failure.
  std::int64_t process();

 private:
  void processBlock(int frames);
  void processPart(std::size_t first, int frames);
  void take(const double* left, const double* right, int frames);
  void countProgress(int frames);

  Effect& effect;
  SoundReader& reader;
  std::string sourceName;
  std::vector<Frames> inputWatchers;
  Frames output;
  std::function<void(std::int64_t)> progress;
  std::unique_ptr<BlockRunner> runner;
  std::unique_ptr<RightChannel> rightChannel;  // null where the effect takes both
  std::optional<Automation> automation;
  OutputStage stage;
  std::vector<double> left;
  std::vector<double> right;
  std::vector<double> outLeft;
  std::vector<double> outRight;
  std::int64_t processed = 0;  // frames that the effect had
  std::int64_t taken = 0;      // frames for the file
  std::int64_t uncounted = 0;  // frames since the progress was told
};
