// Options that would be ignored.
#include "host/options/fitting.h"

#include <set>
#include <string>

namespace {

// By their names in the help. What is missing here is refused: an option that comes new belongs to
// the writing of sound until somebody says otherwise.
const std::set<std::string> kForTheEffect = {
    "--plugin",    "--preset", "--bank",   "--width",       "--base-freq",    "--emphasis",
    "--process",   "--phase",  "--set",    "--state",       "--save-state",   "--save-preset",
    "--save-bank", "--block",  "--double", "--single",      "--quiet",        "--force",
    "--info",      "--json",   "--editor", "--list-params", "--list-presets", "--list-plugins"};
const std::set<std::string> kForWhatIsPlayed = {"IN", "--gain", "--salvage"};

// Of files that are named, or told apart by their types.
const std::set<std::string> kForFiles = {"--suffix", "--skip-existing", "--type", "--quality"};

void checkFittingOutput(const CommandLine& line, const Arguments& arguments) {
  if (arguments.output != "-") {
    if (arguments.raw) throw UsageFailure("--raw is for the standard output: add -o -");
    return;
  }
  for (const std::string& name : line.used()) {
    if (kForFiles.contains(name))
      throw UsageFailure("leave " + name + " out: the sound goes to the standard output");
  }
}

}  // namespace

void checkFitting(const CommandLine& line, const Arguments& arguments) {
  checkFittingOutput(line, arguments);
  const bool converts = !arguments.inputs.empty() || arguments.output.has_value();
  if (arguments.validator || (converts && !arguments.asksOnly())) return;
  const bool plays = arguments.editor && !arguments.inputs.empty();
  for (const std::string& name : line.used()) {
    if (kForTheEffect.contains(name)) continue;
    const bool forPlaying = kForWhatIsPlayed.contains(name);
    if (forPlaying && plays) continue;
    throw UsageFailure("leave " + name + " out: no sound is written" +
                       (forPlaying ? " or played" : "") + " here");
  }
}
