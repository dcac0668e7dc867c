// The command line, read and checked as far as it can be without looking at files or at the effect.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "host/base/failure.h"
#include "host/sound/soundformat.h"

// --set NAME=VALUE, taken apart at the first "=".
struct ParameterSetting {
  std::string parameter;  // name or index
  std::string value;
};

// What puts the effect into its state, in the order in which it is applied.
struct StateArguments {
  static constexpr int kTrelvanParameters = 5;  // width, baseFreq, emphasis, process, phase

  std::optional<std::string> state;                             // raw chunk
  std::optional<std::string> bank;                              // .orb
  std::optional<std::string> preset;                            // name, number or .orv
  std::array<std::optional<float>, kTrelvanParameters> values;  // normalised, by parameter index
  std::vector<ParameterSetting> settings;
};

struct TailArgument {
  bool automatic = false;
  double seconds = 0.0;
};

struct Arguments {
  static constexpr int kDefaultBlockSize = 1024;     // frames
  static constexpr int kLargestBlockSize = 1 << 20;  // frames
  static constexpr int kMostJobs = 256;

  std::vector<std::string> inputs;
  std::optional<std::string> output;  // file, or folder
  bool force = false;                 // existing outputs are replaced
  std::optional<SampleFormat> format;
  double gain = 1.0;  // factor
  TailArgument tail;
  std::optional<std::string> plot;  // file, or folder
  int jobs = 1;

  StateArguments state;
  std::optional<std::string> saveState;

  std::optional<std::string> plugin;
  int blockSize = kDefaultBlockSize;
  bool doublePrecision = false;

  // Questions instead of conversions, and the effect's window.
  bool info = false;
  bool listParameters = false;
  bool listPresets = false;
  bool editor = false;
  bool asksOnly() const { return info || listParameters || listPresets || editor; }

  bool quiet = false;
};

// Either arguments to act on, or a text for the standard output after which nothing is left to do (help, version).
struct ParsedArguments {
  std::optional<Arguments> arguments;
  std::string text;
};

// words: the command line without the program's name. Throws UsageFailure.
ParsedArguments parseArguments(const std::vector<std::string>& words);
