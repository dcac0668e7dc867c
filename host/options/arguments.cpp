// The command line's options, their help, and the rules between them.
#include "host/options/arguments.h"

#include <sndfile.h>

#include "effect/parameters.h"
#include "host/base/text.h"
#include "host/options/batchoptions.h"
#include "host/options/commandline.h"
#include "host/options/completion.h"
#include "host/options/effectoptions.h"
#include "host/options/figureoptions.h"
#include "host/options/fileoptions.h"
#include "host/options/fitting.h"
#include "host/options/leveloptions.h"
#include "host/options/soundoptions.h"
#include "host/options/validatoroptions.h"

namespace {

constexpr const char* kDescription =
    "widen: runs mono or stereo sound files through a VST 2.4 effect, by default Trelvan, and "
    "writes stereo files.";

constexpr const char* kUsage =
    "Usage: widen [OPTIONS] IN... -o OUT\n"
    "       widen [OPTIONS] --info | --list-params | --list-presets | --list-plugins\n"
    "       widen [OPTIONS] --editor [IN]\n"
    "       widen --analyse [--json] IN...\n"
    "       widen --validate [PLUGIN] [--strictness 1..10] [--seed N] [--check NAME]\n";

// The base frequency's range and curve are the effect's own.
std::string frequencyNotes() {
  using parametercurves::kHzRange, parametercurves::kLowestHz;
  const double highest = kLowestHz + kHzRange;
  const double middle = parameterAt(kBaseFreqIndex).derived(0.5F);
  return formatted("265Hz or 0.265kHz, from %gHz to %gHz; without a unit 0 to 1 is the raw value\n",
                   kLowestHz, highest) +
         formatted(
             "                       (%g + %g x^2 Hz, so that 0.5 is %g Hz) "
             "and %g to %g is in Hz.\n",
             kLowestHz, kHzRange, middle, kLowestHz, highest);
}

std::string notes() {
  return R"(Values
  --width, --emphasis  75% is three quarters; a number without a unit is the raw value, 0 to 1.
  --base-freq          )" +
         frequencyNotes() +
         R"(  --process, --phase   on or off; a number is the raw value, 0 to 1, on from 0.5.
  They come on top of --state, --bank and --preset, which are applied in this order. A sound file
  gets a preset that widens where nothing sets the width.

Outputs
  One input: OUT is the file, or a folder that is there (or ends in "/"). Several inputs, or a folder with all that is
  in it: OUT is a folder, made when it is missing. Files in a folder keep their names; what is lossy, or of a type that
  is not written, becomes .wav unless --type names another. A file that is already there is replaced only with --force.
  What cannot be finished is removed.

Exit status: 0 done, 1 failed, 2 wrong usage.)";
}

// --save-state and its like alone: nothing is converted.
bool onlySavesState(const Arguments& arguments) {
  const bool saves = arguments.saveState || arguments.saved.any();
  return saves && arguments.inputs.empty() && !arguments.output && !arguments.dryRun;
}

void checkRules(const Arguments& arguments) {
  if (arguments.validator || arguments.analyse) return;  // they have rules of their own
  if (arguments.asksOnly()) {
    if (arguments.output) throw UsageFailure("nothing is written here: leave -o out");
    if (arguments.editor && arguments.inputs.size() > 1) {
      throw UsageFailure("--editor plays one sound file");
    }
    if (!arguments.editor && !arguments.inputs.empty()) {
      throw UsageFailure("--info and the lists take no sound files");
    }
    return;
  }
  if (onlySavesState(arguments)) return;
  if (arguments.inputs.empty()) throw UsageFailure("no sound file named");
  if (!arguments.output && !arguments.suffix) {
    throw UsageFailure("no output named: add -o OUT, or --suffix TEXT for outputs beside inputs");
  }
}

}  // namespace

ParsedArguments parseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  FileWords files;
  LevelWords level;
  BatchWords batch;
  SoundWords sound;
  EffectWords effect;
  ValidatorWords validator;
  bool version = false;
  std::string shell;
  CommandLine line("widen", kDescription, kUsage, notes());
  addFileOptions(line, files, arguments);
  line.flag("-q,--quiet", arguments.quiet, "Say nothing but errors and warnings");
  line.option("--completion", shell, "Print what makes bash, zsh or fish complete options")
      .valueName("SHELL");
  line.flag("--version", version, "Show the version");
  addLevelOptions(line, level, arguments);
  addBatchOptions(line, batch, arguments);
  addSoundOptions(line, sound, arguments);
  addEffectOptions(line, effect, arguments);
  addFigureOptions(line, arguments);
  addValidatorOptions(line, validator);
  if (const std::optional<std::string> help = line.parse(words)) return {std::nullopt, *help};
  if (version) {
    return {std::nullopt, std::string("widen " WIDEN_VERSION ", VST 2.4 host for files, with ") +
                              sf_version_string() + "\n"};
  }
  if (line.has("--completion")) return {std::nullopt, completionFor(shell, line)};
  takeFileOptions(line, files, arguments);
  takeLevelOptions(line, level, arguments);
  takeBatchOptions(line, batch, arguments);
  takeSoundOptions(line, sound, arguments);
  takeEffectOptions(line, effect, arguments);
  takeValidator(line, validator, arguments);
  checkFigureOptions(line, arguments);
  checkRules(arguments);
  checkFitting(line, arguments);
  return {arguments, {}};
}
