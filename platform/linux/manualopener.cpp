// The manual on Linux: the user's copy or the bundle's, opened by xdg-open.
#include "platform/manualopener.h"

#include <glib.h>

#include <chrono>
#include <string>

#include "platform/linux/childprogram.h"
#include "platform/linux/environment.h"
#include "platform/modulepath.h"
#include "platform/paths.h"

namespace {

// xdg-open ends at once, or stays as long as the viewer
constexpr auto kLongestStart = std::chrono::seconds(10);

// Empty where there is none. The Documents folder may have another name in the user's language.
std::string manualFile() {
  const std::string relative = kManualPath;
  const std::string belowDocuments = relative.substr(relative.find('/') + 1);
  const std::string name = namePart(relative);
  const std::string home = environmentVariable("HOME");
  if (!home.empty() && isFile(home + "/" + relative)) return home + "/" + relative;
  if (const char* documents = g_get_user_special_dir(G_USER_DIRECTORY_DOCUMENTS);
      documents != nullptr && isFile(std::string(documents) + "/" + belowDocuments)) {
    return std::string(documents) + "/" + belowDocuments;
  }
  const std::string resources = resourcesFolder();
  return !resources.empty() && isFile(resources + name) ? resources + name : std::string();
}

}  // namespace

struct ManualOpener::System {
  ChildProgram program;
  State state = State::running;
  std::chrono::steady_clock::time_point giveUp = std::chrono::steady_clock::now() + kLongestStart;
};

ManualOpener::ManualOpener() = default;

ManualOpener::~ManualOpener() {
  if (system) system->program.leave();
}

void ManualOpener::start() {
  if (system) system->program.leave();
  system = std::make_unique<System>();
  const std::string file = manualFile();
  const std::string opener = findProgram("xdg-open");
  // Between us and the viewer stands a shell that can be ended alone: so the viewer can be let go
  // at any time, and its end is then not ours to collect. The viewer's output goes nowhere, because
  // we will not be there to read it.
  const bool started =
      !file.empty() && !opener.empty() &&
      system->program.start({"/bin/sh", "-c", "\"$0\" \"$1\" >/dev/null & wait $!", opener, file},
                            ChildProgram::Lifetime::itsOwn);
  if (!started) system->state = State::failed;
}

ManualOpener::State ManualOpener::poll() {
  if (!system) return State::none;
  if (system->state != State::running) return system->state;
  if (system->program.poll() == ChildProgram::State::ended) {
    const int status = system->program.exitStatus();
    system->state =
        status == 0 || status == ChildProgram::kUnknownStatus ? State::opened : State::failed;
  } else if (std::chrono::steady_clock::now() >= system->giveUp) {
    system->program.leave();
    system->state = State::opened;
  }
  return system->state;
}
