// An effect's window in the host's, opened, idled and closed as hosts do.
#include "host/validate/means/showneditor.h"

#include <algorithm>
#include <thread>

#include "host/validate/means/windowerrors.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kLargest = 16384;                      // pixels; screens end before
constexpr HostCallback::Size kUntilKnown{320, 200};  // pixels
constexpr auto kTimeToBeSeen = 5s;                   // a first picture may take its time

HostCallback::Size sizeOrUsual(Subject& subject) {
  const auto told = toldWindowSize(subject);
  return told && isSane(*told) ? *told : kUntilKnown;
}

HostCallback::Size sizeAtFirst(Trial& trial, Subject& subject, ShownEditor::Parent as) {
  ParentWindow::needDisplay(trial);
  passOverWindowErrors();
  if (as == ShownEditor::Parent::smallAndHidden) return {1, 1};
  trial.step("asking for the window's size before it opens");
  return sizeOrUsual(subject);
}

}  // namespace

std::optional<HostCallback::Size> toldWindowSize(Subject& subject) {
  ERect* rect = nullptr;
  subject.dispatch(effEditGetRect, 0, 0, &rect);
  if (rect == nullptr) return std::nullopt;
  return HostCallback::Size{rect->right - rect->left, rect->bottom - rect->top};
}

bool isSane(HostCallback::Size size) {
  return size.width > 0 && size.height > 0 && size.width <= kLargest && size.height <= kLargest;
}

ShownEditor::ShownEditor(Trial& itsTrial, Subject& itsSubject, Parent as)
    : trial(itsTrial),
      subject(itsSubject),
      window(sizeAtFirst(itsTrial, itsSubject, as), as == Parent::asTold) {}

ShownEditor::~ShownEditor() {
  close();
}

bool ShownEditor::tryOpen() {
  trial.step("opening the window");
  const VstIntPtr opened = subject.dispatch(effEditOpen, 0, 0, window.handle());
  isOpen = opened != 0 || !window.children().empty();
  if (!isOpen) return false;
  const auto told = toldWindowSize(subject);
  if (told && isSane(*told) && window.isShown()) window.resize(*told);
  return true;
}

void ShownEditor::open() {
  if (!tryOpen()) trial.leaveOut("its window does not open");
}

void ShownEditor::show() {
  window.resize(sizeOrUsual(subject));
  window.show();
}

void ShownEditor::idle() {
  subject.dispatch(effEditIdle);
  if (const auto size = subject.host().takeWindowSize()) {
    asked = size;
    window.resize({std::min(size->width, kLargest), std::min(size->height, kLargest)});
  }
}

void ShownEditor::idleFor(std::chrono::milliseconds time, int hertz) {
  trial.step("idling the window at %d Hz", hertz);
  const auto end = Clock::now() + time;
  while (Clock::now() < end) {
    idle();
    std::this_thread::sleep_for(std::chrono::microseconds(1'000'000 / hertz));
  }
}

bool ShownEditor::idleUntilVisible() {
  trial.step("idling the window until it is on the screen");
  const auto end = Clock::now() + kTimeToBeSeen;
  while (Clock::now() < end) {
    idle();
    for (const ParentWindow::Child& child : window.children()) {
      if (child.visible) return true;
    }
    std::this_thread::sleep_for(std::chrono::microseconds(1'000'000 / kIdleRate));
  }
  return false;
}

void ShownEditor::close() {
  if (!isOpen) return;
  isOpen = false;
  trial.step("closing the window");
  subject.dispatch(effEditClose);
}
