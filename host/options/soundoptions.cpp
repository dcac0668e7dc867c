// The part of the command line about how the effect is set.
#include "host/options/soundoptions.h"

#include "host/state/presetfilenames.h"
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

// A file of the wrong kind would be found out only when it is loaded.
void checkExtensions(const Arguments& arguments) {
  const auto isFx = [](const std::optional<std::string>& file) {
    return file && (isFxPreset(*file) || isFxBank(*file));
  };
  const auto& [preset, bank] = arguments.saved;
  if (preset && !isPresetFile(*preset) && !isFxPreset(*preset))
    throw UsageFailure("--save-preset: " + *preset + " ends in neither .orv nor .fxp");
  if (bank && !isBankFile(*bank) && !isFxBank(*bank))
    throw UsageFailure("--save-bank: " + *bank + " ends in neither .orb nor .fxb");
  if (isFx(arguments.saveState))
    throw UsageFailure("--save-state writes no .fxp or .fxb: use --save-preset or --save-bank");
  if (isFx(arguments.state.state))
    throw UsageFailure("--state reads no .fxp or .fxb: use --preset or --bank");
}

}  // namespace

void addSoundOptions(CommandLine& line, SoundWords& words, Arguments&) {
  const std::string sound = "Sound";
  line.option("--preset", words.preset, "Name, number, or preset file (.orv, .fxp)")
      .group(sound)
      .valueName("PRESET");
  line.option("--bank", words.bank, "Bank file (.orb, .fxb); of .orb the first preset is selected")
      .group(sound)
      .valueName("FILE");
  for (std::size_t i = 0; i < kValueOptions.size(); ++i) {
    line.option(kValueOptions[i].name, words.values[i], kValueOptions[i].help)
        .group(sound)
        .valueName("VALUE");
  }
  line.option("--set", words.settings,
              "Any effect's parameter by name or index: 0 to 1, or as shown (repeatable)")
      .group(sound)
      .oneValueEach()
      .valueName("NAME=VALUE");
  line.option("--automate", words.automation,
              "Move parameters by lines of seconds, parameter and value")
      .group(sound)
      .valueName("FILE");
  line.option("--state", words.state, "Start from a saved state (the effect's chunk)")
      .group(sound)
      .valueName("FILE");
  line.option("--save-state", words.saveState, "Save the state that results")
      .group(sound)
      .valueName("FILE");
  line.option("--save-preset", words.savePreset, "Save the current preset (.orv, .fxp)")
      .group(sound)
      .valueName("FILE");
  line.option("--save-bank", words.saveBank, "Save all presets (.orb, .fxb)")
      .group(sound)
      .valueName("FILE");
}

void takeSoundOptions(const CommandLine& line, const SoundWords& words, Arguments& arguments) {
  for (std::size_t i = 0; i < kValueOptions.size(); ++i) {
    if (!line.has(kValueOptions[i].name)) continue;
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
  arguments.state.automation = line.given("--automate", words.automation);
  arguments.state.state = line.given("--state", words.state);
  arguments.state.bank = line.given("--bank", words.bank);
  arguments.state.preset = line.given("--preset", words.preset);
  arguments.saveState = line.given("--save-state", words.saveState);
  arguments.saved.preset = line.given("--save-preset", words.savePreset);
  arguments.saved.bank = line.given("--save-bank", words.saveBank);
  checkExtensions(arguments);
}
