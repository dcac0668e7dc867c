// The script for fish.
#include "host/options/completion.h"

#include "host/sound/soundformat.h"

namespace {

std::string quoted(const std::string& text) {
  std::string safe = "'";
  for (const char letter : text) {
    if (letter == '\'' || letter == '\\') safe += '\\';
    safe += letter;
  }
  return safe + "'";
}

std::string valuesOf(const CompletedOption& option) {
  switch (option.kind) {
    case ValueKind::none:
      return {};
    case ValueKind::free:
      return " -x";
    case ValueKind::words:
      return " -x -a " + quoted(joined(option.choices, " "));
    case ValueKind::files:
      return option.choices.empty()
                 ? " -r -F"
                 : " -x -a " + quoted("(__widen_files " + joined(option.choices, " ") + ")");
    case ValueKind::preset:
      return " -x -a " + quoted("(__widen_presets " + joined(option.choices, " ") + ")");
  }
  return {};
}

}  // namespace

std::string fishCompletion(const std::vector<CompletedOption>& options) {
  std::string script = R"(# Completion of widen's command line for fish.

function __widen_files
  for extension in $argv
    __fish_complete_suffix .$extension
  end | sort -u
end

function __widen_presets
  string match -q -- '*--plugin*' (commandline -opc)
  or widen --list-presets 2>/dev/null | string replace -r '^[* ] *[0-9]*  ' ''
  __widen_files $argv
end

)";
  script += "complete -c widen -f -a '(__widen_files " + joined(soundExtensions(), " ") + ")'\n";
  for (const CompletedOption& option : options) {
    script += "complete -c widen";
    if (!option.shortName.empty()) script += " -s " + option.shortName;
    script += " -l " + option.longName + valuesOf(option) + " -d " + quoted(option.help) + "\n";
  }
  return script;
}
