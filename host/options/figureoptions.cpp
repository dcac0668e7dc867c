// The part of the command line about figures.
#include "host/options/figureoptions.h"

#include <set>
#include <string>

namespace {

// No effect is there that other options could be for, and nothing is written.
const std::set<std::string> kForAnalysis = {"IN",      "--analyse", "--json",
                                            "--quiet", "--jobs",    "--salvage"};

void checkAnalysis(const CommandLine& line, const Arguments& arguments) {
  for (const std::string& name : line.used()) {
    if (!kForAnalysis.contains(name)) throw UsageFailure("--analyse goes without " + name);
  }
  if (arguments.inputs.empty()) throw UsageFailure("no sound file named");
}

}  // namespace

void addFigureOptions(CommandLine& line, Arguments& arguments) {
  const std::string figures = "Figures";
  line.flag("--analyse", arguments.analyse,
            "Show levels, loudness and correlation of IN; write nothing")
      .group(figures);
  line.flag("--json", arguments.json,
            "Results as one JSON document; words go to the standard error stream")
      .group(figures);
}

void checkFigureOptions(const CommandLine& line, const Arguments& arguments) {
  if (arguments.validator) return;  // it has rules of its own
  if (arguments.analyse) {
    checkAnalysis(line, arguments);
  } else if (arguments.json) {
    const bool asks = arguments.info || arguments.listParameters || arguments.listPresets ||
                      arguments.listPlugins;
    const bool converts = !arguments.asksOnly() && !arguments.inputs.empty();
    if (arguments.editor || !(asks || converts)) {
      throw UsageFailure("--json goes with sound files, --info and the lists");
    }
    if (arguments.dryRun) throw UsageFailure("--dry-run has no results: leave --json out");
    if (converts && arguments.output == "-")
      throw UsageFailure("--json and -o - both want the standard output");
  }
}
