// The part of the command line about the effect itself.
#include "host/options/effectoptions.h"

void addEffectOptions(CommandLine& line, EffectWords& words, Arguments& arguments) {
  const std::string effect = "Effect";
  line.option("--plugin", words.plugin,
              "VST 2.4 effect: bundle, binary, or an installed one's name; default: Trelvan")
      .group(effect)
      .valueName("EFFECT");
  line.option("--block", arguments.blockSize, "Frames a block; the result does not depend on it")
      .group(effect)
      .range(1, Arguments::kLargestBlockSize)
      .valueName("N");
  line.flag("--double", words.twice,
            "Process in double precision; default: for 32-bit integers and doubles, if it can")
      .group(effect);
  line.flag("--single", words.once, "Process in single precision").group(effect);
  line.flag("--info", arguments.info, "Show everything that the effect says of itself")
      .group(effect);
  line.flag("--list-params", arguments.listParameters, "Show the parameters and their values")
      .group(effect);
  line.flag("--list-presets", arguments.listPresets, "Show the presets").group(effect);
  line.flag("--list-plugins", arguments.listPlugins,
            "Show the installed effects: those in VST_PATH and where hosts look")
      .group(effect);
  line.flag("--editor", arguments.editor,
            "Open the effect's window, until it is closed; IN is played round and round")
      .group(effect);
}

void takeEffectOptions(const CommandLine& line, const EffectWords& words, Arguments& arguments) {
  arguments.plugin = line.given("--plugin", words.plugin);
  if (words.once && words.twice)
    throw UsageFailure("--single and --double exclude each other: leave one out");
  if (words.once) arguments.precision = Precision::single;
  if (words.twice) arguments.precision = Precision::twice;
}
