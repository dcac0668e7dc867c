// The manual on macOS: the user's copy or the bundle's, opened by the shell's "open".
#include "platform/manualopener.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/modulepath.h"
#include "platform/paths.h"

namespace {

// "open" hands the file over and ends at once, with a status that says whether it was there and
// something shows it.
bool shellOpens(const std::string& quotedPath) {
  char command[1024];  // bytes; a longer one is not run
  const int length = std::snprintf(command, sizeof command, "open %s", quotedPath.c_str());
  return length > 0 && static_cast<std::size_t>(length) < sizeof command &&
         std::system(command) == 0;
}

// One word of the shell's, whatever it holds.
std::string quoted(const std::string& text) {
  std::string word = "'";
  for (const char character : text)
    word += character == '\'' ? std::string("'\\''") : std::string(1, character);
  return word + "'";
}

bool opens() {
  const std::string relative = kManualPath;
  if (shellOpens("~/\"" + relative + "\"")) return true;
  const std::string resources = resourcesFolder();
  return !resources.empty() && shellOpens(quoted(resources + namePart(relative)));
}

}  // namespace

struct ManualOpener::System {
  State state;
};

ManualOpener::ManualOpener() = default;
ManualOpener::~ManualOpener() = default;

void ManualOpener::start() {
  system = std::make_unique<System>(System{opens() ? State::opened : State::failed});
}

ManualOpener::State ManualOpener::poll() {
  return system ? system->state : State::none;
}
