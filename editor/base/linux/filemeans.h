// The means by which a desktop asks its user for a file.
#pragma once

#include <string>

#include "editor/base/filedialog.h"

// The desktop's dialog programs, or its portal. One question at a time, which is started, asked for
// from the idle pass, and ended with the object. User-interface thread.
class FileMeans {
 public:
  enum class State {
    running,
    accepted,
    declined,
    unavailable,  // this desktop has not got it
  };

  virtual ~FileMeans() = default;
  // For a file. Ends the question before; the outcome, a failure to start included, comes from
  // poll.
  virtual void choose(const FileDialogRequest& request) = 0;
  // Whether the file may be saved over, which is there. False: this means has no such question.
  virtual bool askToReplace(const FileDialogRequest& request, const std::string& path) = 0;
  virtual State poll() = 0;
  // The full path of the file that was chosen; empty where it is none that can be opened.
  virtual std::string path() const = 0;
  // Whether a file of another name in the chosen one's folder is not the user's: in a sandbox the
  // one that was chosen is all that is let in.
  virtual bool isOnlyFile() const = 0;
};
