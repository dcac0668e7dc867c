// The script for zsh.
#include "host/options/completion.h"

#include "host/sound/soundformat.h"

namespace {

constexpr const char* kPresets = R"zsh(
_widen_presets() {
  local -a names
  (( ${words[(I)--plugin*]} )) ||
    names=(${(f)"$($words[1] --list-presets 2>/dev/null | sed 's/^[* ] *[0-9]*  //')"})
  compadd -a names
  _files -g "*.$1"
}

)zsh";

// Between quotes, and in what stands between brackets.
std::string escaped(const std::string& text) {
  std::string safe;
  for (const char letter : text) {
    if (letter == '\'') {
      safe += "'\\''";
    } else {
      if (letter == '[' || letter == ']' || letter == ':' || letter == '\\') safe += '\\';
      safe += letter;
    }
  }
  return safe;
}

std::string filesOf(const std::vector<std::string>& extensions) {
  if (extensions.empty()) return "_files";
  return "_files -g \"*.(" + joined(extensions, "|") + ")(-.)\"";
}

std::string actionOf(const CompletedOption& option) {
  switch (option.kind) {
    case ValueKind::none:
      return {};
    case ValueKind::free:
      return ":value: ";
    case ValueKind::words:
      return ":value:(" + joined(option.choices, " ") + ")";
    case ValueKind::files:
      return ":file:" + filesOf(option.choices);
    case ValueKind::preset:
      return ":preset:_widen_presets " + joined(option.choices, " ");
  }
  return {};
}

std::string specOf(const CompletedOption& option) {
  const bool takesValue = option.kind != ValueKind::none;
  const std::string rest = (takesValue ? "=" : "") + ("[" + escaped(option.help) + "]") +
                           (option.valueOptional ? ":" : "") + actionOf(option);
  std::string line = " \\\n    ";
  if (!option.shortName.empty()) {
    const std::string value = takesValue ? "+" : "";
    line += "'*-" + option.shortName + value + rest.substr(takesValue ? 1 : 0) + "' \\\n    ";
  }
  return line + "'*--" + option.longName + rest + "'";
}

}  // namespace

std::string zshCompletion(const std::vector<CompletedOption>& options) {
  std::string script = "#compdef widen\n# Completion of widen's command line for zsh.\n";
  script += kPresets;
  script += "_widen() {\n  _arguments -s -S";
  for (const CompletedOption& option : options) script += specOf(option);
  script += " \\\n    '*:sound file:" + filesOf(soundExtensions()) + "'\n}\n\n";
  // Read by autoload the whole file is the function, read by source it only defines it.
  script +=
      "if [ \"$funcstack[1]\" = _widen ]; then _widen \"$@\"; else compdef _widen widen; fi\n";
  return script;
}
