// The part of the command line about the level of what is written.
#include "host/options/leveloptions.h"

#include "host/state/values.h"

void addLevelOptions(CLI::App& app, LevelWords& words, Arguments&) {
  const std::string level = "Level";
  app.add_option("--gain", words.gain, "Louder or softer after the effect, e.g. -3dB")
      ->group(level)
      ->type_name("DB");
}

void takeLevelOptions(const CLI::App& app, const LevelWords& words, Arguments& arguments) {
  if (app.count("--gain") != 0) arguments.gain = parseGain("--gain", words.gain);
}
