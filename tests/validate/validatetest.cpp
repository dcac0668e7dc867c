// Runs the built widen's validator.
#include "tests/validate/validatetest.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <memory>

#include "tests/support/signalwords.h"

ValidatorRun validateFile(const std::string& plugin, const std::vector<std::string>& words) {
  std::string command = std::string(WIDEN_PROGRAM) + " --validate '" + plugin + "'";
  for (const std::string& word : words) command += " '" + word + "'";
  return validateCommand(command);
}

ValidatorRun validateCommand(const std::string& command) {
  FILE* output = popen(("{ " + command + "; } 2>&1 </dev/null").c_str(), "r");
  if (output == nullptr) return {-1, "the validator cannot be run"};
  std::string text;
  std::array<char, 4096> piece{};
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), output))
    text.append(piece.data(), got);
  const int status = pclose(output);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, inLinuxWords(text)};
}
