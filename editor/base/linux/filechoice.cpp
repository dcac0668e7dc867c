// Spells a request for a file as zenity and kdialog take it.
#include "editor/base/linux/filechoice.h"

#include <algorithm>
#include <cctype>

#include "platform/linux/environment.h"
#include "platform/paths.h"

namespace {

// "*.orv *.ORV"
std::string patternsOf(const std::string& extension) {
  const auto patterns = filePatterns(extension);
  return patterns[0] + " " + patterns[1];
}

std::string startOf(const FileDialogRequest& request) {
  return dialogFolder(request) + (request.save ? request.proposedName : std::string());
}

std::vector<std::string> zenityFile(const std::string& program, const FileDialogRequest& request) {
  std::vector<std::string> arguments = {
      program, "--file-selection", "--title=" + request.title, "--filename=" + startOf(request),
      "--file-filter=" + request.typeName + " (*." + request.extension + ") | " +
          patternsOf(request.extension)};
  if (request.save) {
    arguments.emplace_back("--save");
    arguments.emplace_back("--confirm-overwrite");
  }
  if (request.window != 0) arguments.push_back("--attach=" + std::to_string(request.window));
  return arguments;
}

std::vector<std::string> kdialogFile(const std::string& program, const FileDialogRequest& request) {
  std::vector<std::string> arguments = {program, "--title", request.title};
  if (request.window != 0) {
    arguments.emplace_back("--attach");
    arguments.push_back(std::to_string(request.window));
  }
  arguments.emplace_back(request.save ? "--getsavefilename" : "--getopenfilename");
  arguments.push_back(startOf(request));
  arguments.push_back(request.typeName + " (" + patternsOf(request.extension) + ")");
  return arguments;
}

}  // namespace

std::array<std::string, 2> filePatterns(const std::string& extension) {
  std::string upper = extension;
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](unsigned char letter) { return std::toupper(letter); });
  return {"*." + extension, "*." + upper};
}

std::string dialogFolder(const FileDialogRequest& request) {
  std::string folder = request.folder;
  if (folder.empty() || !isFolder(folder)) folder = environmentVariable("HOME");
  if (folder.empty() || folder.back() != '/') folder += '/';
  return folder;
}

std::vector<std::string> fileChoice(const desktopdialog::Program& program,
                                    const FileDialogRequest& request) {
  const bool kdialog = program.kind == desktopdialog::Kind::kdialog;
  return kdialog ? kdialogFile(program.path, request) : zenityFile(program.path, request);
}
