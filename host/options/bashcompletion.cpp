// The script for bash.
#include "host/options/completion.h"

#include "host/sound/soundformat.h"

namespace {

// COMP_WORDS has "=" as a word of its own. A name with blanks is typed quoted or with backslashes,
// and `-o filenames` puts the backslashes of what is completed.
constexpr const char* kHead = R"(# Completion of widen's command line for bash.

# Bash 3.2, which macOS has, knows no mapfile.
_widen_add_lines() {
  local line
  while IFS= read -r line; do COMPREPLY+=("$line"); done
}

_widen_files() {
  local extension kind=-d
  [ $# -gt 0 ] || kind=-f
  COMPREPLY=()
  _widen_add_lines < <(compgen $kind -- "$current")
  for extension in "$@"; do
    _widen_add_lines < <(compgen -f -X "!*.$extension" -- "$current")
  done
}

_widen_words() {
  local word
  COMPREPLY=()
  for word in "$@"; do
    [[ $word != "$current"* ]] || COMPREPLY+=("$word")
  done
}

_widen_presets() {
  local names files IFS=$' \t\n'
  COMPREPLY=()
  [[ " ${COMP_WORDS[*]} " == *" --plugin"* ]] || _widen_add_lines < <(
    "${COMP_WORDS[0]}" --list-presets 2>/dev/null | sed 's/^[* ] *[0-9]*  //')
  names=("${COMPREPLY[@]}")
  _widen_files "$@"
  files=("${COMPREPLY[@]}")
  _widen_words "${names[@]}"
  COMPREPLY+=("${files[@]}")
}

_widen() {
  local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
  if [ "$current" = = ]; then
    current=
  elif [ "$option" = = ] && [ "$COMP_CWORD" -gt 2 ]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  current=${current//\\ / }
  current=${current#[\"\']}
  case $option in
)";

std::string caseOf(const CompletedOption& option) {
  std::string names = "--" + option.longName;
  if (!option.shortName.empty()) names = "-" + option.shortName + " | " + names;
  const std::string values = joined(option.choices, " ");
  const std::string space = values.empty() ? "" : " ";
  switch (option.kind) {
    case ValueKind::none:
      return {};
    case ValueKind::free:
      return "    " + names + ") COMPREPLY=(); return ;;\n";
    case ValueKind::words:
      return "    " + names + ") _widen_words " + values + "; return ;;\n";
    case ValueKind::files:
      return "    " + names + ") _widen_files" + space + values + "; return ;;\n";
    case ValueKind::preset:
      return "    " + names + ") _widen_presets" + space + values + "; return ;;\n";
  }
  return {};
}

}  // namespace

std::string bashCompletion(const std::vector<CompletedOption>& options) {
  std::string script = kHead;
  std::vector<std::string> names;
  for (const CompletedOption& option : options) {
    // After one whose value may be missing, an option may follow.
    if (!option.valueOptional) script += caseOf(option);
    if (!option.shortName.empty()) names.push_back("-" + option.shortName);
    names.push_back("--" + option.longName);
  }
  script += "  esac\n  case $current in\n    -*) _widen_words " + joined(names, " ") +
            " ;;\n    *) _widen_files " + joined(soundExtensions(), " ") +
            " ;;\n  esac\n}\ncomplete -o filenames -F _widen widen\n";
  return script;
}
