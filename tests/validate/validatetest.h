// Runs the built widen's validator on the test plug-ins.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

struct ValidatorRun {
  int status;  // exit status; -1: ended by a signal
  std::string text;
};

// words: after "--validate PLUGIN".
ValidatorRun validateFile(const std::string& plugin, const std::vector<std::string>& words);

// By the shell, whose standard error stream is read too.
ValidatorRun validateCommand(const std::string& command);

// A plug-in of the family, by its name.
inline std::string pluginFile(const std::string& name) {
  return std::string(VALIDATE_PLUGINS) + "/" + name + ".so";
}
inline ValidatorRun validateBroken(const std::string& name, const std::string& check) {
  return validateFile(pluginFile(name), {"--strictness", "10", "--seed", "1", "--check", check});
}

// One planted fault, the check that has to find it, and what it has to say.
struct PlantedFault {
  const char* plugin;  // named after its class, in plugins/bad*.cpp
  const char* check;
  const char* says;
  bool alsoSanitized = true;    // false: the check is left out where a sanitizer stands in its way
  const char* sound = "sound";  // the plug-in that the check passes
};
inline void PrintTo(const PlantedFault& fault, std::ostream* out) {
  *out << fault.plugin << " in \"" << fault.check << '"';
}

// Its one test is in plantedfaultstest.cpp; the faults are where their subject is.
class PlantedFaults : public testing::TestWithParam<PlantedFault> {};

inline std::string nameOfFault(const testing::TestParamInfo<PlantedFault>& test) {
  return test.param.plugin;
}
