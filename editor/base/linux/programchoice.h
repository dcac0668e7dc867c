// Asks for a file with the desktop's dialog program.
#pragma once

#include <string>
#include <vector>

#include "editor/base/linux/filemeans.h"
#include "platform/linux/childprogram.h"
#include "platform/linux/desktopdialog.h"

class ProgramChoice final : public FileMeans {
 public:
  // installed: in the order in which they are tried.
  explicit ProgramChoice(std::vector<desktopdialog::Program> installed);

  void choose(const FileDialogRequest& request) override;
  bool askToReplace(const FileDialogRequest& request, const std::string& path) override;
  State poll() override;
  std::string path() const override;
  bool isOnlyFile() const override { return false; }

 private:
  void show();

  std::vector<desktopdialog::Program> programs;  // still to be tried, the one in use first
  FileDialogRequest asked;
  ChildProgram program;
  State state = State::unavailable;
  bool confirming = false;
};
