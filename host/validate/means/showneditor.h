// An effect's window in the host's, opened, idled and closed as hosts do.
#pragma once

#include <chrono>
#include <optional>

#include "host/validate/means/parentwindow.h"
#include "host/validate/subject.h"

// What effEditGetRect tells; none where there is no rectangle.
std::optional<HostCallback::Size> toldWindowSize(Subject& subject);
// Where this is false no host can make a window of it.
bool isSane(HostCallback::Size size);

// On one thread, which may be another than the effect's other callers'.
class ShownEditor {
 public:
  static constexpr int kIdleRate = 60;  // Hz

  // The effect has a window, and is told that this host shows it. Small and hidden: the host's
  // window is 1 pixel large and not shown before `show`.
  enum class Parent { asTold, smallAndHidden };
  ShownEditor(Trial& trial, Subject& subject, Parent as = Parent::asTold);
  ~ShownEditor();  // closed
  ShownEditor(const ShownEditor&) = delete;
  ShownEditor& operator=(const ShownEditor&) = delete;

  bool tryOpen();
  // Leaves the check out where it does not open, which is another check's.
  void open();
  void show();  // the host's window, as large as the effect tells
  // Idles once, and gives the host's window the size that the effect asks for.
  void idle();
  void idleFor(std::chrono::milliseconds time, int hertz = kIdleRate);
  // Until a child of the host's window is on the screen; false: it takes too long.
  bool idleUntilVisible();
  void close();
  void forget() { isOpen = false; }  // it is the effect's to end it

  ParentWindow& parent() { return window; }
  // The last size that the effect asked the host for.
  std::optional<HostCallback::Size> askedSize() const { return asked; }

 private:
  Trial& trial;
  Subject& subject;
  ParentWindow window;
  std::optional<HostCallback::Size> asked;
  bool isOpen = false;
};
