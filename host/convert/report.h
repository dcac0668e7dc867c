// What was done with a file, in words for the person.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/convert/filefigures.h"
#include "host/convert/jobs.h"
#include "host/plot/plot.h"
#include "host/sound/soundformat.h"
#include "host/state/effectsetting.h"

// A file's conversion, in numbers.
struct Conversion {
  int channels = 0;
  int sampleRate = 0;  // Hz
  std::int64_t framesRead = 0;
  std::int64_t framesWritten = 0;
  FileType type = FileType::wav;
  bool raw = false;  // the samples alone
  SampleFormat format = SampleFormat::pcm16;
  double gain = 1.0;  // factor
  double peak = 0.0;  // before clipping, 1 is full scale
  std::int64_t clippedSamples = 0;
  double clippedFold = 0.0;          // largest |(L+R)/2| that was lost by clipping
  std::vector<std::string> notKept;  // of what the input said beside its sound
  std::string damage;                // of a salvaged input, as SoundReader::damage
  bool dithered = false;
  bool doublePrecision = false;
  // The side against the mid, factors; 0 for a mono input.
  double sideToMidBefore = 0.0;
  double sideToMid = 0.0;
  // Options with which nothing would be clipped, and with which the result would be as wide as the
  // input; empty where there is none.
  std::string optionThatFits;
  std::string optionAsWide;
  std::string preset;                       // as describeCurrentPreset
  std::optional<std::string> chosenPreset;  // its name, where nobody named one
  std::string values;                       // as describeValues

  // With --json.
  int inputFormat = 0;  // libsndfile's format word
  std::optional<WrittenFigures> figures;
  std::optional<EffectSetting> setting;
};

// The report's lines, and what there is to warn of, a line for each.
std::string reportOf(const Conversion& done, const Job& job);
std::string warningsOf(const Conversion& done, const Job& job);
PlotCaption captionOf(const Conversion& done, const Job& job);
