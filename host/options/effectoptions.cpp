// The part of the command line about the effect itself.
#include "host/options/effectoptions.h"

#include "host/options/given.h"

void addEffectOptions(CLI::App& app, EffectWords& words, Arguments& arguments) {
  const std::string effect = "Effect";
  app.add_option("--plugin", words.plugin,
                 "VST 2.4 effect: bundle, binary, or an installed one's name; default: Trelvan")
      ->group(effect)
      ->type_name("EFFECT");
  app.add_option("--block", arguments.blockSize, "Frames a block; the result does not depend on it")
      ->group(effect)
      ->check(CLI::Range(1, Arguments::kLargestBlockSize).description(""))
      ->type_name("N");
  app.add_flag("--double", words.twice,
               "Process in double precision; default: for 32-bit integers and doubles, if it can")
      ->group(effect);
  app.add_flag("--single", words.once, "Process in single precision")->group(effect);
  app.add_flag("--info", arguments.info, "Show everything that the effect says of itself")
      ->group(effect);
  app.add_flag("--list-params", arguments.listParameters, "Show the parameters and their values")
      ->group(effect);
  app.add_flag("--list-presets", arguments.listPresets, "Show the presets")->group(effect);
  app.add_flag("--list-plugins", arguments.listPlugins,
               "Show the installed effects: those in VST_PATH and where hosts look")
      ->group(effect);
  app.add_flag("--editor", arguments.editor,
               "Open the effect's window, until it is closed; IN is played round and round")
      ->group(effect);
}

void takeEffectOptions(const CLI::App& app, const EffectWords& words, Arguments& arguments) {
  arguments.plugin = given(app, "--plugin", words.plugin);
  if (words.once && words.twice)
    throw UsageFailure("--single and --double exclude each other: leave one out");
  if (words.once) arguments.precision = Precision::single;
  if (words.twice) arguments.precision = Precision::twice;
}
