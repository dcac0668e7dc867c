// A home folder for the checks.
#include "host/validate/trialhome.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include "host/base/failure.h"

TrialHome::TrialHome() {
  std::error_code error;
  const std::filesystem::path all = std::filesystem::temp_directory_path(error);
  std::string name = (all / "widen-validate-XXXXXX").string();
  if (error || mkdtemp(name.data()) == nullptr)
    throw Failure("no temporary folder can be made in " + all.string());
  folder = name;
  // X clients look for their right to connect in the home folder, where it is not named.
  const char* home = std::getenv("HOME");
  if (home != nullptr) setenv("XAUTHORITY", (std::string(home) + "/.Xauthority").c_str(), 0);
  setenv("HOME", folder.c_str(), 1);
  for (const char* variable :
       {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
    unsetenv(variable);  // below HOME then
}

TrialHome::~TrialHome() {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}
