// The command line's options, their help, and the rules between them.
#include "host/cli/arguments.h"

#include <sndfile.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "effect/parameters.h"
#include "host/base/text.h"
#include "host/cli/validatorarguments.h"
#include "host/state/values.h"

namespace {

constexpr const char* kDescription =
    "widen: runs mono or stereo sound files through a VST 2.4 effect, by default Trelvan, and "
    "writes stereo files.";

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
  They come on top of --state, --bank and --preset, which are applied in this order.

Outputs
  One input: OUT is the file, or a folder that is there (or ends in "/"). Several inputs: OUT is a folder, made when it
  is missing. Files in a folder keep their names; what is not WAV, AIFF or FLAC becomes .wav. A file that is already
  there is replaced only with --force. What cannot be finished is removed.

Exit status: 0 done, 1 failed, 2 wrong usage.)";
}

// The words as they were typed; what needs more than the option's own rules is checked
// after the parser.
struct Typed {
  std::array<std::string, kParameterCount> values;
  std::vector<std::string> settings;
  std::string output, format, gain, tail, plot, state, bank, preset, saveState, plugin;
  bool version = false;
};

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

class Formatter : public CLI::Formatter {
 public:
  Formatter() { column_width(32); }
  std::string make_usage(const CLI::App*, std::string) const override {
    return "Usage: widen [OPTIONS] IN... -o OUT\n"
           "       widen [OPTIONS] --info | --list-params | --list-presets\n"
           "       widen [OPTIONS] --editor [IN]\n"
           "       widen --validate [PLUGIN] [--strictness 1..10] [--seed N] [--check NAME]\n";
  }
};

std::optional<std::string> given(const CLI::App& app, const char* option, const std::string& text) {
  if (app.count(option) == 0) return std::nullopt;
  if (text.empty()) throw UsageFailure(std::string(option) + ": nothing named");
  return text;
}

void addOptions(CLI::App& app, Arguments& arguments, Typed& typed) {
  app.add_option("IN", arguments.inputs, "Sound files, mono or stereo")->type_name("");
  app.add_option("-o,--output", typed.output, "Output file or folder: .wav, .aif(f) or .flac")
      ->type_name("OUT");
  app.add_flag("-f,--force", arguments.force, "Replace outputs that are already there");
  app.add_option("--format", typed.format,
                 "pcm16, pcm24, pcm32, float or double; default: as the input")
      ->type_name("FORMAT");
  app.add_option("--gain", typed.gain, "Louder or softer after the effect, e.g. -3dB")
      ->type_name("DB");
  app.add_option("--tail", typed.tail,
                 "Let the effect ring out: 2s, 250ms, or auto (until it is silent)")
      ->type_name("TIME");
  app.add_option("--plot", typed.plot,
                 "Picture of the stereo image before and after (PNG file or folder)")
      ->type_name("PNG");
  app.add_option("-j,--jobs", arguments.jobs, "Files at the same time; 0: one for each processor")
      ->check(CLI::Range(0, Arguments::kMostJobs).description(""))
      ->type_name("N");
  app.add_flag("-q,--quiet", arguments.quiet, "Say nothing but errors and warnings");

  const std::string sound = "Sound";
  app.add_option("--preset", typed.preset, "Name, number, or preset file (.orv)")
      ->group(sound)
      ->type_name("PRESET");
  app.add_option("--bank", typed.bank, "Bank file (.orb); its first preset is selected")
      ->group(sound)
      ->type_name("FILE");
  for (std::size_t i = 0; i < kValueOptions.size(); ++i) {
    app.add_option(kValueOptions[i].name, typed.values[i], kValueOptions[i].help)
        ->group(sound)
        ->type_name("VALUE");
  }
  app.add_option("--set", typed.settings,
                 "Any effect's parameter by name or index, 0 to 1 (may be repeated)")
      ->group(sound)
      ->allow_extra_args(false)
      ->type_name("NAME=VALUE");
  app.add_option("--state", typed.state, "Start from a saved state (the effect's chunk)")
      ->group(sound)
      ->type_name("FILE");
  app.add_option("--save-state", typed.saveState, "Save the state that results")
      ->group(sound)
      ->type_name("FILE");

  const std::string effect = "Effect";
  app.add_option("--plugin", typed.plugin,
                 "VST 2.4 effect: bundle or binary; default: Trelvan.vst beside widen")
      ->group(effect)
      ->type_name("PATH");
  app.add_option("--block", arguments.blockSize, "Frames a block; the result does not depend on it")
      ->group(effect)
      ->check(CLI::Range(1, Arguments::kLargestBlockSize).description(""))
      ->type_name("N");
  app.add_flag("--double", arguments.doublePrecision, "Process in double precision")->group(effect);
  app.add_flag("--info", arguments.info, "Show everything that the effect says of itself")
      ->group(effect);
  app.add_flag("--list-params", arguments.listParameters, "Show the parameters and their values")
      ->group(effect);
  app.add_flag("--list-presets", arguments.listPresets, "Show the presets")->group(effect);
  app.add_flag("--editor", arguments.editor,
               "Open the effect's window, until it is closed; IN is played round and round")
      ->group(effect);
  app.add_flag("--version", typed.version, "Show the version");
}

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

void takeValues(const CLI::App& app, const Typed& typed, StateArguments& state) {
  for (std::size_t i = 0; i < kValueOptions.size(); ++i) {
    if (app.count(kValueOptions[i].name) == 0) continue;
    state.values[i] =
        parseTrelvanValue(static_cast<int>(i), kValueOptions[i].name, typed.values[i]);
  }
  for (const std::string& setting : typed.settings) {
    const auto equals = setting.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == setting.size()) {
      throw UsageFailure("--set: \"" + setting + "\" is not NAME=VALUE");
    }
    state.settings.push_back({setting.substr(0, equals), setting.substr(equals + 1)});
  }
}

void takeOutputOptions(const CLI::App& app, const Typed& typed, Arguments& arguments) {
  arguments.output = given(app, "--output", typed.output);
  arguments.plot = given(app, "--plot", typed.plot);
  if (app.count("--format") != 0) {
    arguments.format = sampleFormatNamed(typed.format);
    if (!arguments.format) {
      throw UsageFailure("--format: \"" + typed.format +
                         "\" is not pcm16, pcm24, pcm32, float or double");
    }
  }
  if (app.count("--gain") != 0) arguments.gain = parseGain("--gain", typed.gain);
  if (app.count("--tail") != 0) {
    arguments.tail.automatic = typed.tail == "auto";
    if (!arguments.tail.automatic) arguments.tail.seconds = parseSeconds("--tail", typed.tail);
  }
}

void checkRules(const Arguments& arguments) {
  if (arguments.validator) return;  // it has rules of its own
  if (arguments.asksOnly()) {
    if (arguments.output) throw UsageFailure("nothing is written here: leave -o out");
    if (arguments.editor && arguments.inputs.size() > 1) {
      throw UsageFailure("--editor plays one sound file");
    }
    if (!arguments.editor && !arguments.inputs.empty()) {
      throw UsageFailure("--info, --list-params and --list-presets take no sound files");
    }
    return;
  }
  const bool savesOnly = arguments.saveState && arguments.inputs.empty() && !arguments.output;
  if (savesOnly) return;
  if (arguments.inputs.empty()) throw UsageFailure("no sound file named");
  if (!arguments.output) throw UsageFailure("no output named: add -o OUT");
}

}  // namespace

ParsedArguments parseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  Typed typed;
  ValidatorWords validatorWords;
  CLI::App app(kDescription, "widen");
  app.formatter(std::make_shared<Formatter>());
  app.footer(notes());
  addOptions(app, arguments, typed);
  addValidatorOptions(app, validatorWords);
  try {
    // the parser takes the last word first
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    return {std::nullopt, app.help()};
  } catch (const CLI::ParseError& error) {
    throw UsageFailure(oneLine(error.what()));
  }
  if (typed.version) {
    return {std::nullopt, std::string("widen " WIDEN_VERSION ", VST 2.4 host for files, with ") +
                              sf_version_string() + "\n"};
  }
  takeValues(app, typed, arguments.state);
  takeOutputOptions(app, typed, arguments);
  arguments.state.state = given(app, "--state", typed.state);
  arguments.state.bank = given(app, "--bank", typed.bank);
  arguments.state.preset = given(app, "--preset", typed.preset);
  arguments.saveState = given(app, "--save-state", typed.saveState);
  arguments.plugin = given(app, "--plugin", typed.plugin);
  takeValidator(app, validatorWords, arguments);
  checkRules(arguments);
  return {arguments, {}};
}
