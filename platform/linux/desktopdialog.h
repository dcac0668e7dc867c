// The desktop's dialog programs: which there are, and the arguments with which they show a text.
#pragma once

#include <string>
#include <vector>

namespace desktopdialog {

enum class Kind { zenity, kdialog, xmessage };

struct Program {
  Kind kind;
  std::string path;
};

// True where there is a display to show anything on.
bool hasDisplay();

// Those that PATH has, the one made for the running desktop first.
std::vector<Program> filePrograms();   // zenity, kdialog
std::vector<Program> alertPrograms();  // these, then xmessage

// Argument vectors. Texts are data: no markup, no escapes, whatever they hold.
std::vector<std::string> question(const Program& program, const std::string& title,
                                  const std::string& text);
std::vector<std::string> warning(const Program& program, const std::string& title,
                                 const std::string& text);

enum class Answer {
  accepted,
  declined,
  unusable,  // the program does not work here: try another
};

// exitStatus: as ChildProgram returns it. output: an unknown status counts as accepted with, as
// declined without.
Answer answerOf(int exitStatus, const std::string& output);

}  // namespace desktopdialog
