// The dialog in which the user chooses a file to load or a name to save under.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct FileDialogRequest {
  bool save = false;
  std::string title;
  std::string folder;        // where it opens; empty or gone: the user's home
  std::string typeName;      // of the files offered, "Orv Preset"
  std::string extension;     // theirs, without the dot; appended to a saved name that lacks it
  std::string proposedName;  // for saving; may be empty
  // the host's window (X11 window id, NSView*), which the dialog stays in front of; 0: none
  std::uintptr_t window = 0;
};

// One dialog at a time, and never a wait: it is started, asked for from the idle pass, and ended
// with its owner. The user is asked before a file that exists is saved over.
// User-interface thread only.
class FileDialog {
 public:
  enum class State {
    none,  // not started, or ended
    running,
    chosen,  // path() is what the user chose
    cancelled,
    unavailable,  // this desktop has no dialog to offer
  };

  FileDialog();
  ~FileDialog();  // ends it
  FileDialog(const FileDialog&) = delete;
  FileDialog& operator=(const FileDialog&) = delete;

  // Ends the one before. The outcome, a failure to start included, comes from poll.
  void start(const FileDialogRequest& request);
  // Microseconds, but for the start of a follow-up question.
  State poll();
  std::string path() const;  // full path, once chosen
  void cancel();

 private:
  struct System;
  std::unique_ptr<System> system;
};
