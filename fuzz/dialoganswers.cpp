// Fuzz target: what the desktop's dialog programs write and how they end.
#include <strings.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "editor/base/filedialog.h"
#include "fuzz/inputreader.h"
#include "fuzz/require.h"
#include "fuzz/scriptedprograms.h"
#include "platform/xplatfile.h"

namespace {

using State = FileDialog::State;
using fuzz::InputReader;

// Folders with zenity, with kdialog, with both and with none.
class Desktop {
 public:
  Desktop() {
    std::string pattern = (std::filesystem::temp_directory_path() / "trelvan-fuzz-XXXXXX").string();
    require(mkdtemp(pattern.data()) != nullptr, "a temporary folder can be made");
    folder = pattern;
    for (const char* program : {"zenity", "kdialog"}) {
      for (const std::string& which : {std::string(program), std::string("both")}) {
        std::filesystem::create_directories(folder / which);
        std::ofstream(folder / which / program) << "never run\n";
        chmod((folder / which / program).c_str(), 0755);
      }
    }
    setenv("DISPLAY", ":17", 1);
    unsetenv("WAYLAND_DISPLAY");
    for (const char* bus : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}) unsetenv(bus);
  }
  ~Desktop() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  void choose(unsigned which) const {
    constexpr const char* kFolders[] = {"zenity", "kdialog", "both", "none"};
    setenv("PATH", (folder / kFolders[which & 3U]).c_str(), 1);
    setenv("XDG_CURRENT_DESKTOP", (which & 4U) != 0 ? "X:KDE" : "GNOME", 1);
  }

 private:
  std::filesystem::path folder;
};

bool endsInExtension(const std::string& path) {
  return path.size() >= 4 && strcasecmp(path.c_str() + path.size() - 4, ".orv") == 0;
}

// About a file that is there already.
bool isQuestion(const fuzz::PlayedProgram& program) {
  return std::any_of(program.arguments.begin(), program.arguments.end(), [](const auto& word) {
    return word == "--question" || word == "--warningcontinuecancel";
  });
}

// By the rule: it ended well, or nobody knows how and it has written something.
bool isYes(const fuzz::PlayedProgram& program) {
  if (program.unknown) return !program.output.empty();
  return WIFEXITED(program.status) && WEXITSTATUS(program.status) == 0;
}

// What the user chose is what the last choosing program wrote, without its new line.
void requireChosen(const FileDialogRequest& request, const std::string& path) {
  const auto& programs = fuzz::playedPrograms();
  require(!programs.empty() && isYes(programs.back()), "the last program has said yes");
  auto last = programs.rbegin();
  const bool wasAsked = isQuestion(*last);
  if (wasAsked) ++last;
  require(last != programs.rend() && !isQuestion(*last) && isYes(*last), "a path was chosen");
  std::string written = last->output;
  if (!written.empty() && written.back() == '\n') written.pop_back();
  const bool lacksExtension = request.save && !endsInExtension(written);
  require(path == (lacksExtension ? written + ".orv" : written), "the path is the one chosen");
  require(lacksExtension ? fuzz::lastFileQuestion().path == path &&
                               fuzz::lastFileQuestion().isThere == wasAsked
                         : !wasAsked,
          "the user is asked about a file that the extension makes it, where it is there");
  require(path[0] == '/' && path.back() != '/', "it is a file's full path");
  require(path.find('\0') == std::string::npos, "no path has a zero in it");
}

// The buffers are those of the file operations.
void requireSplits(const std::string& path) {
  char name[kXPlatPathPartSize] = "name";
  char folder[kXPlatPathPartSize] = "folder/";
  XPlatGetFileNameAndDir(path.c_str(), name, folder);
  require(std::strchr(name, '/') == nullptr, "a name has no folder");
  require(folder[std::strlen(folder) - 1] == '/', "a folder ends in a slash");
  require(std::string(folder) + name == path || std::string(folder) + name == "folder/name",
          "both are the path, or as they were");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Desktop desktop;
  InputReader input(data, size);
  const unsigned choice = input.byte();
  desktop.choose(choice);
  FileDialogRequest request;
  request.save = (choice & 8U) != 0;
  request.title = "title";
  request.typeName = "Orv Preset";
  request.extension = "orv";
  request.window = (choice & 16U) != 0 ? 4711 : 0;
  request.folder = input.text();
  request.proposedName = input.text();
  const unsigned patience = input.byte();  // idle passes until the window closes
  fuzz::playPrograms(&input);

  FileDialog dialog;
  dialog.start(request);
  State state = dialog.poll();
  for (unsigned passes = 0; passes < patience && state == State::running; ++passes)
    state = dialog.poll();
  require(state == State::running || dialog.poll() == state, "an end is an end");
  if (state == State::chosen) {
    requireChosen(request, dialog.path());
    requireSplits(dialog.path());
  }
  dialog.cancel();
  require(dialog.poll() == State::none, "a dialog that was ended is none");
  for (const fuzz::PlayedProgram& program : fuzz::playedPrograms())
    require(!program.running, "no program is left running");
  require(!fuzz::isProgramGuarded(), "nor its guard");
  fuzz::playPrograms(nullptr);
  return 0;
}
