// What shells can complete of the command line.
#include "host/options/completion.h"

#include <algorithm>

#include "host/base/failure.h"
#include "host/sound/soundformat.h"

namespace {

struct KnownValue {
  const char* option;
  ValueKind kind;
  std::vector<std::string> choices;
};

// What the name of an option's value does not say.
const std::vector<KnownValue>& knownValues() {
  static const std::vector<KnownValue> kKnown = {
      {"--format", ValueKind::words, {"pcm16", "pcm24", "pcm32", "float", "double"}},
      {"--type",
       ValueKind::words,
       {"wav", "aiff", "flac", "caf", "w64", "rf64", "ogg", "opus", "mp3"}},
      {"--gain", ValueKind::words, {"auto"}},
      {"--tail", ValueKind::words, {"auto"}},
      {"--process", ValueKind::words, {"on", "off"}},
      {"--phase", ValueKind::words, {"on", "off"}},
      {"--completion", ValueKind::words, {"bash", "zsh", "fish"}},
      {"--preset", ValueKind::preset, {"orv", "fxp"}},
      {"--bank", ValueKind::files, {"orb", "fxb"}},
      {"--save-preset", ValueKind::files, {"orv", "fxp"}},
      {"--save-bank", ValueKind::files, {"orb", "fxb"}},
      {"--plot", ValueKind::files, {"png"}},
      {"--output", ValueKind::files, soundExtensions()},
      {"--plugin", ValueKind::files, {"so", "vst"}},
      {"--validate", ValueKind::files, {"so", "vst"}},
  };
  return kKnown;
}

void setKind(const DescribedOption& option, CompletedOption& completed) {
  if (option.isFlag) return;
  completed.valueOptional = option.valueOptional;
  for (const KnownValue& known : knownValues()) {
    if (option.name != known.option) continue;
    completed.kind = known.kind;
    completed.choices = known.choices;
    return;
  }
  completed.kind = option.valueName == "FILE" ? ValueKind::files : ValueKind::free;
}

}  // namespace

std::vector<CompletedOption> completedOptions(const CommandLine& line) {
  std::vector<CompletedOption> options;
  for (const DescribedOption& option : line.described()) {
    CompletedOption completed;
    completed.shortName = option.shortName;
    completed.help = option.help;
    setKind(option, completed);
    for (const std::string& name : option.longNames) {
      completed.longName = name;
      options.push_back(completed);
      completed.shortName.clear();
    }
  }
  return options;
}

std::string completionFor(const std::string& shell, const CommandLine& line) {
  if (shell == "bash") return bashCompletion(completedOptions(line));
  if (shell == "zsh") return zshCompletion(completedOptions(line));
  if (shell == "fish") return fishCompletion(completedOptions(line));
  throw UsageFailure("--completion: \"" + shell + "\" is not bash, zsh or fish");
}

std::string joined(const std::vector<std::string>& texts, const std::string& separator) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : separator) + text;
  return all;
}
