// Starts programs on posix_spawn.
#include "platform/linux/programstart.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <unistd.h>

#include <string_view>

namespace {

// Set by hosts and their wrappers for their own libraries, modules and interpreters.
constexpr std::string_view kHostsOwn[] = {
    "GTK_PATH",
    "GTK_MODULES",
    "GTK2_MODULES",
    "GTK3_MODULES",
    "GTK_EXE_PREFIX",
    "GTK_DATA_PREFIX",
    "GTK_IM_MODULE_FILE",
    "GTK_RC_FILES",
    "GTK2_RC_FILES",
    "GIO_EXTRA_MODULES",
    "GIO_MODULE_DIR",
    "GDK_PIXBUF_MODULE_FILE",
    "GDK_PIXBUF_MODULEDIR",
    "GSETTINGS_SCHEMA_DIR",
    "PANGO_LIBDIR",
    "PANGO_RC_FILE",
    "PANGO_SYSCONFDIR",
    "FONTCONFIG_FILE",
    "FONTCONFIG_PATH",
    "QT_PLUGIN_PATH",
    "QT_QPA_PLATFORM_PLUGIN_PATH",
    "QML_IMPORT_PATH",
    "QML2_IMPORT_PATH",
    "PYTHONHOME",
    "PYTHONPATH",
    "PERLLIB",
    "PERL5LIB",
    "GCONV_PATH",
};

bool isHostsOwn(std::string_view entry) {
  const std::string_view name = entry.substr(0, entry.find('='));
  if (name.substr(0, 3) == "LD_") return true;  // all of the dynamic loader's
  for (const std::string_view own : kHostsOwn) {
    if (name == own) return true;
  }
  return false;
}

// The form that the system takes: pointers into the strings, which must outlive it, then a null.
std::vector<char*> pointersTo(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  for (std::string& string : strings) pointers.push_back(string.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Errors are nobody's, input and output what is given, everything else of the host is closed.
class FileActions {
 public:
  FileActions(int input, int output) {
    posix_spawn_file_actions_init(&actions);
    // first: what is given may have any of the three numbers
    if (input >= 0) posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    if (output >= 0) posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    if (input < 0)
      posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (output < 0)
      posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  posix_spawn_file_actions_t actions;
};

// The host's thread may block or ignore signals; the child starts without either.
class Attributes {
 public:
  explicit Attributes(pid_t group) {
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setpgroup(&attributes, group);
    posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
  }
  ~Attributes() { posix_spawnattr_destroy(&attributes); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  posix_spawnattr_t attributes;
};

}  // namespace

std::vector<std::string> cleanedEnvironment() {
  std::vector<std::string> entries;
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
    if (!isHostsOwn(*entry)) entries.emplace_back(*entry);
  }
  return entries;
}

ProgramStart::ProgramStart(const std::vector<std::string>& arguments)
    : argumentStrings(arguments),
      environmentStrings(cleanedEnvironment()),
      argumentPointers(pointersTo(argumentStrings)),
      environmentPointers(pointersTo(environmentStrings)) {}

pid_t ProgramStart::start(int input, int output, pid_t group) noexcept {
  const FileActions files(input, output);
  const Attributes attributes(group);
  pid_t started = 0;
  const int error =
      posix_spawn(&started, argumentPointers[0], &files.actions, &attributes.attributes,
                  argumentPointers.data(), environmentPointers.data());
  return error == 0 ? started : 0;
}
