// The part of the command line about how the effect is set.
#include "host/options/soundoptions.h"

#include "host/options/given.h"
#include "host/state/values.h"

namespace {

struct ValueOption {
  const char* name;
  const char* help;
};
// By parameter index.
constexpr auto kValueOptions = std::to_array<ValueOption>({
    {"--width", "Width of the image, e.g. 75%"},
    {"--base-freq", "One period of it is the delay, e.g. 265Hz"},
    {"--emphasis", "Emphasis of the highs in the side signal, e.g. 30%"},
    {"--process", "Effect on or off"},
    {"--phase", "Sides swapped on or off"},
});
static_assert(kValueOptions.size() == kParameterCount);

}  // namespace

void addSoundOptions(CLI::App& app, SoundWords& words, Arguments&) {
  const std::string sound = "Sound";
  app.add_option("--preset", words.preset, "Name, number, or preset file (.orv)")
      ->group(sound)
      ->type_name("PRESET");
  app.add_option("--bank", words.bank, "Bank file (.orb); its first preset is selected")
      ->group(sound)
      ->type_name("FILE");
  for (std::size_t i = 0; i < kValueOptions.size(); ++i) {
    app.add_option(kValueOptions[i].name, words.values[i], kValueOptions[i].help)
        ->group(sound)
        ->type_name("VALUE");
  }
  app.add_option("--set", words.settings,
                 "Any effect's parameter by name or index, 0 to 1 (may be repeated)")
      ->group(sound)
      ->allow_extra_args(false)
      ->type_name("NAME=VALUE");
  app.add_option("--state", words.state, "Start from a saved state (the effect's chunk)")
      ->group(sound)
      ->type_name("FILE");
  app.add_option("--save-state", words.saveState, "Save the state that results")
      ->group(sound)
      ->type_name("FILE");
}

void takeSoundOptions(const CLI::App& app, const SoundWords& words, Arguments& arguments) {
  for (std::size_t i = 0; i < kValueOptions.size(); ++i) {
    if (app.count(kValueOptions[i].name) == 0) continue;
    arguments.state.values[i] =
        parseTrelvanValue(static_cast<int>(i), kValueOptions[i].name, words.values[i]);
  }
  for (const std::string& setting : words.settings) {
    const auto equals = setting.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == setting.size()) {
      throw UsageFailure("--set: \"" + setting + "\" is not NAME=VALUE");
    }
    arguments.state.settings.push_back({setting.substr(0, equals), setting.substr(equals + 1)});
  }
  arguments.state.state = given(app, "--state", words.state);
  arguments.state.bank = given(app, "--bank", words.bank);
  arguments.state.preset = given(app, "--preset", words.preset);
  arguments.saveState = given(app, "--save-state", words.saveState);
}
