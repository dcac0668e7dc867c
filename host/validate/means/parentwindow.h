// A window of the host's for an effect's window to open in, and what can be seen of that from
// outside.
#pragma once

#include <memory>
#include <vector>

#include "host/validate/trial.h"
#include "host/vst/hostcallback.h"

// Used by one thread; beside it the effect has a connection of its own, so that what it does may
// need a moment to be seen.
class ParentWindow {
 public:
  // Leaves the check out where no window can be made.
  static void needDisplay(Trial& trial);
  // Leaves the check out where effects do not find the display by the environment's DISPLAY.
  static void needNamedDisplay(Trial& trial);

  // shown: on the screen at once. Throws Failure.
  explicit ParentWindow(HostCallback::Size size, bool shown = true);
  ~ParentWindow();
  ParentWindow(const ParentWindow&) = delete;
  ParentWindow& operator=(const ParentWindow&) = delete;

  void* handle() const;  // as effEditOpen takes it
  void show();
  bool isShown();
  void resize(HostCallback::Size size);
  void destroy();  // with all windows in it, whosever they are

  struct Child {
    HostCallback::Size size;
    bool visible;
  };
  std::vector<Child> children();  // those made in it by others
  // Whether the largest of them is painted in more than one colour; true where that cannot be told.
  bool isPainted();
  // Cuts the connection of who made the child, or what is furthest inside of it. false: no child.
  bool cutConnection(bool furthestInside);

 private:
  struct System;
  std::unique_ptr<System> system;
};
