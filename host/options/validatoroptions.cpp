// The validator's part of the command line.
#include "host/options/validatoroptions.h"

#include <charconv>
#include <set>

namespace {

// Not by the parser, which takes numbers that are too large or negative as others.
std::uint64_t parseSeed(const std::string& text) {
  std::uint64_t seed = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, seed);
  if (error != std::errc() || rest != end)
    throw UsageFailure("--seed: \"" + text + "\" is no whole number from 0 to 2^64 - 1");
  return seed;
}

}  // namespace

void addValidatorOptions(CommandLine& line, ValidatorWords& words) {
  const std::string validator = "Validator";
  line.option("--validate", words.plugin,
              "Check a VST 2.4 effect, by default Trelvan, and say what is wrong with it")
      .group(validator)
      .valueOptional()
      .valueName("[PLUGIN]");
  line.option("--strictness", words.strictness, "1 asks the least, 10 everything; default: 5")
      .group(validator)
      .range(1, 10)
      .valueName("N");
  line.option("--seed", words.seed, "What chance decides, as in the run that printed it")
      .group(validator)
      .valueName("N");
  line.option("--check", words.check, "This check alone; what the effect writes is shown")
      .group(validator)
      .valueName("NAME");
}

void takeValidator(const CommandLine& line, const ValidatorWords& words, Arguments& arguments) {
  const bool named = line.has("--validate");
  for (const char* option : {"--strictness", "--seed", "--check"}) {
    if (!named && line.has(option))
      throw UsageFailure(std::string(option) + " belongs to --validate");
  }
  if (!named) return;
  arguments.validator.emplace();
  arguments.validator->strictness = words.strictness;
  if (line.has("--check")) {
    if (words.check.empty()) throw UsageFailure("--check: nothing named");
    arguments.validator->check = words.check;
  }
  if (line.has("--seed")) arguments.validator->seed = parseSeed(words.seed);
  const std::set<std::string> fitting = {"--validate", "--strictness", "--seed", "--check",
                                         "--plugin"};
  for (const std::string& name : line.used()) {
    if (!fitting.contains(name)) throw UsageFailure("--validate goes without " + name);
  }
  if (words.plugin.empty()) return;
  if (arguments.plugin) throw UsageFailure("--validate: two plug-ins named");
  arguments.plugin = words.plugin;
}
