// Fuzz target: widen's command line, as far as it is read without looking at a file or an effect.
#include "host/options/arguments.h"

#include <optional>
#include <string>
#include <vector>

#include "fuzz/require.h"

namespace {

// The words stand one after the other with zeros in between, as a process gets them.
std::vector<std::string> wordsOf(const std::uint8_t* input, std::size_t size) {
  std::vector<std::string> words(1);
  for (std::size_t at = 0; at < size; ++at) {
    if (input[at] == 0) {
      words.emplace_back();
    } else {
      words.back() += static_cast<char>(input[at]);
    }
  }
  return words;
}

bool isWithin(double value, double lowest, double highest) {
  return value >= lowest && value <= highest;  // false for a NaN
}

void requireRanges(const Arguments& arguments) {
  require(isWithin(arguments.gain, 0.001, 1000.0), "the gain is within 60 dB either way");
  require(isWithin(arguments.tail.seconds, 0.0, 3600.0), "the tail is an hour at most");
  require(!arguments.tail.automatic || arguments.tail.seconds == 0.0,
          "a tail is automatic or has a length");
  require(isWithin(arguments.jobs, 0, Arguments::kMostJobs), "the jobs are within their limits");
  require(isWithin(arguments.blockSize, 1, Arguments::kLargestBlockSize),
          "the block is within its limits");
  for (const std::optional<float>& value : arguments.state.values)
    require(!value || isWithin(*value, 0.0, 1.0), "a parameter's value is within 0..1");
}

void requireRules(const Arguments& arguments) {
  for (const auto& setting : arguments.state.settings)
    require(!setting.parameter.empty() && !setting.value.empty(),
            "a setting has a name and a value");
  for (const auto* named :
       {&arguments.output, &arguments.plot, &arguments.saveState, &arguments.plugin,
        &arguments.state.state, &arguments.state.bank, &arguments.state.preset}) {
    require(!*named || !(*named)->empty(), "what is named has a name");
  }
  if (arguments.validator) return;  // it takes a plug-in, and nothing else
  const bool hasInput = !arguments.inputs.empty();
  const bool hasOutput = arguments.output || arguments.suffix;
  const bool saves = arguments.saveState || arguments.saved.any();
  if (arguments.analyse) {
    require(hasInput && !hasOutput, "files that are looked at are not written");
  } else if (arguments.asksOnly()) {
    const std::size_t most = arguments.editor ? 1 : 0;
    require(arguments.inputs.size() <= most && !arguments.output, "a question goes without files");
  } else {
    require(hasInput ? hasOutput : saves && !arguments.output,
            "there is something to do, and one thing only");
  }
}

void requireSoundOutcome(const std::vector<std::string>& words) {
  ParsedArguments parsed;
  try {
    parsed = parseArguments(words);
  } catch (const UsageFailure& failure) {
    require(*failure.what() != 0, "a refusal says why");
    require(failure.status() == ExitStatus::wrongUsage, "and is the user's");
    return;
  }
  require(parsed.arguments.has_value() == parsed.text.empty(), "there is a text, or work to do");
  if (!parsed.arguments) return;
  requireRanges(*parsed.arguments);
  requireRules(*parsed.arguments);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  requireSoundOutcome(wordsOf(input, size));
  return 0;
}
