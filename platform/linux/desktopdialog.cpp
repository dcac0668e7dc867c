// The command lines of zenity, kdialog and xmessage.
#include "platform/linux/desktopdialog.h"

#include <algorithm>
#include <csignal>

#include "platform/linux/childprogram.h"
#include "platform/linux/environment.h"
#include "platform/validtext.h"

namespace desktopdialog {

namespace {

// XDG_CURRENT_DESKTOP is a list with colons in between.
bool desktopUsesQt() {
  std::string desktops(":");
  desktops.append(environmentVariable("XDG_CURRENT_DESKTOP")).append(":");
  for (const char* desktop : {":KDE:", ":LXQt:", ":LXQT:"}) {
    if (desktops.find(desktop) != std::string::npos) return true;
  }
  return false;
}

void addIfFound(std::vector<Program>& programs, Kind kind, const char* name) {
  const std::string path = findProgram(name);
  if (!path.empty()) programs.push_back({kind, path});
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

// The programs refuse texts that are not UTF-8; and kdialog takes backslash escapes, and takes a
// text with a tag in it for markup, which is then shown as it stands only when it
// is markup throughout.
std::string kdialogText(const std::string& text) {
  std::string data = replaced(validText(text), "\\", "\\\\");
  if (data.find('<') == std::string::npos) return data;
  data = replaced(replaced(replaced(data, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
  return "<qt>" + replaced(data, "\n", "<br/>") + "</qt>";
}

// A text is the program's last argument, and no option even if it begins with a dash.
std::string notAnOption(const std::string& text) {
  return !text.empty() && text[0] == '-' ? " " + text : text;
}

}  // namespace

bool hasDisplay() {
  return !environmentVariable("DISPLAY").empty() || !environmentVariable("WAYLAND_DISPLAY").empty();
}

std::vector<Program> filePrograms() {
  std::vector<Program> programs;
  addIfFound(programs, Kind::zenity, "zenity");
  addIfFound(programs, Kind::kdialog, "kdialog");
  if (desktopUsesQt()) std::reverse(programs.begin(), programs.end());
  return programs;
}

std::vector<Program> alertPrograms() {
  std::vector<Program> programs = filePrograms();
  addIfFound(programs, Kind::xmessage, "xmessage");
  return programs;
}

std::vector<std::string> question(const Program& program, const std::string& title,
                                  const std::string& text) {
  if (program.kind == Kind::kdialog) {
    return {program.path,
            "--title",
            title,
            "--continue-label",
            "Replace",
            "--warningcontinuecancel",
            kdialogText(notAnOption(text))};
  }
  return {program.path,
          "--question",
          "--no-markup",
          "--title=" + title,
          "--ok-label=Replace",
          "--cancel-label=Cancel",
          "--text=" + validText(text)};
}

std::vector<std::string> warning(const Program& program, const std::string& title,
                                 const std::string& text) {
  switch (program.kind) {
    case Kind::kdialog:
      return {program.path, "--title", title, "--sorry", kdialogText(notAnOption(text))};
    case Kind::xmessage:
      return {program.path, "-center", "-title",         title, "-buttons", "OK:0",
              "-default",   "OK",      notAnOption(text)};
    case Kind::zenity:
      break;
  }
  return {program.path, "--warning", "--no-markup", "--title=" + title,
          "--text=" + validText(text)};
}

Answer answerOf(int exitStatus, const std::string& output) {
  constexpr int kRefused = 1;  // cancelled, closed
  constexpr int kTimeout = 5;  // zenity's own time limit
  if (exitStatus == 0) return Answer::accepted;
  if (exitStatus == ChildProgram::kUnknownStatus)
    return output.empty() ? Answer::declined : Answer::accepted;
  if (exitStatus == kRefused || exitStatus == kTimeout) return Answer::declined;
  // Somebody has ended it on purpose.
  for (const int signal : {SIGTERM, SIGKILL, SIGINT, SIGHUP}) {
    if (exitStatus == ChildProgram::kSignalBase + signal) return Answer::declined;
  }
  return Answer::unusable;
}

}  // namespace desktopdialog
