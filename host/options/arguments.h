// The command line, read and checked as far as it can be without looking at files or at the effect.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/base/failure.h"
#include "host/sound/soundformat.h"
#include "host/state/statearguments.h"
#include "host/state/statefiles.h"

struct TailArgument {
  bool automatic = false;
  double seconds = 0.0;
};

// The gain follows from the result's peak, which a pass of its own finds.
struct PeakAim {
  double peak = 1.0;      // not to be exceeded; 1 is full scale
  bool amplifies = true;  // what is softer, until it is reached
};

// In which the effect processes. Automatic: double where effect and file gain by it.
enum class Precision { automatic, single, twice };

struct ValidatorArguments {
  int strictness = 5;                 // 1..10
  std::optional<std::uint64_t> seed;  // none: another one in every run
  std::optional<std::string> check;   // this one alone
};

struct Arguments {
  static constexpr int kDefaultBlockSize = 1024;     // frames
  static constexpr int kLargestBlockSize = 1 << 20;  // frames
  static constexpr int kMostJobs = 256;

  std::vector<std::string> inputs;
  std::optional<std::string> output;  // file, or folder
  bool force = false;                 // existing outputs are replaced
  bool salvage = false;               // damaged inputs count as far as they can be read
  bool raw = false;                   // on the standard output: samples without a header
  std::optional<SampleFormat> format;
  std::optional<std::string> type;  // the outputs' extension in a folder, without its dot
  std::optional<double> quality;    // of lossy outputs, 0 to 10
  double gain = 1.0;                // factor
  std::optional<PeakAim> peakAim;   // in the place of `gain`
  bool dither = false;
  TailArgument tail;
  std::optional<std::string> plot;  // file, or folder
  int jobs = 1;
  bool skipExisting = false;
  std::optional<std::string> suffix;  // of outputs' names; without an output they lie beside inputs
  bool dryRun = false;
  std::optional<bool> isolate;  // a process for each file; none: where there is reason to

  StateArguments state;
  std::optional<std::string> saveState;
  StateFiles saved;

  std::optional<std::string> plugin;
  int blockSize = kDefaultBlockSize;
  Precision precision = Precision::automatic;
  bool asksDouble() const { return precision == Precision::twice; }

  // Questions instead of conversions, and the effect's window.
  bool info = false;
  bool listParameters = false;
  bool listPresets = false;
  bool listPlugins = false;
  bool editor = false;
  bool asksOnly() const { return info || listParameters || listPresets || listPlugins || editor; }

  bool analyse = false;  // the inputs are looked at, no effect is there

  std::optional<ValidatorArguments> validator;  // instead of all that

  bool quiet = false;
  bool json = false;  // results as a document for scripts, words aside
};

// Either arguments to act on, or a text for the standard output after which nothing is left to do
// (help, version).
struct ParsedArguments {
  std::optional<Arguments> arguments;
  std::string text;
};

// words: the command line without the program's name. Throws UsageFailure.
ParsedArguments parseArguments(const std::vector<std::string>& words);
