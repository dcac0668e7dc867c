// Runs the built widen's validator on the test plug-ins.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct ValidatorRun {
  int status;  // exit status; -1: ended by a signal
  std::string text;
};

// words: after "--validate PLUGIN".
ValidatorRun validateFile(const std::string& plugin, const std::vector<std::string>& words);

// A plug-in of the family, by the name of its file.
inline ValidatorRun validateBroken(const std::string& name, const std::string& check) {
  return validateFile(std::string(VALIDATE_PLUGINS) + "/" + name + ".so",
                      {"--strictness", "10", "--seed", "1", "--check", check});
}

// One planted fault, the check that has to find it, and what it has to say.
struct PlantedFault {
  const char* plugin;
  const char* check;
  const char* says;
};
inline void PrintTo(const PlantedFault& fault, std::ostream* out) {
  *out << fault.plugin << " in \"" << fault.check << '"';
}
