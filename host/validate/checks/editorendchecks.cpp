// Checks of the window's ends: out of turn, with the host's window, the effect, the process, the
// display.
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <thread>

#include "host/validate/check.h"
#include "host/validate/means/sanitized.h"
#include "host/validate/means/showneditor.h"
#include "host/validate/means/windowerrors.h"

namespace {

using namespace std::chrono_literals;

void outOfTurn(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ParentWindow::needDisplay(trial);
  passOverWindowErrors();
  trial.step("idling before any window was opened");
  subject.dispatch(effEditIdle);
  trial.step("closing before any window was opened");
  subject.dispatch(effEditClose);
  {
    ShownEditor editor(trial, subject);
    editor.open();
    editor.idleFor(50ms);
  }
  trial.step("idling after the window was closed");
  subject.dispatch(effEditIdle);
  trial.step("closing after the window was closed");
  subject.dispatch(effEditClose);
  ShownEditor editor(trial, subject);
  if (!editor.tryOpen()) trial.fail("its window opens no more after it was closed twice");
}

void opensTwice(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor first(trial, subject);
  first.open();
  first.idleFor(50ms);
  {
    ShownEditor second(trial, subject);
    trial.step("opening a second window without closing the first");
    second.tryOpen();
    second.idleFor(50ms);
  }
  first.idleFor(50ms);
  first.close();
  ShownEditor third(trial, subject);
  if (!third.tryOpen()) trial.fail("its window opens no more after it was opened twice");
}

void hostsWindowGoesFirst(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  for (int round = 0; round < trial.rounds(4); ++round) {
    ShownEditor editor(trial, subject);
    if (round == 0) editor.open();
    if (round > 0 && !editor.tryOpen()) {
      trial.fail("its window opens no more after the host's was destroyed first (time %d)", round);
    }
    if (round % 2 == 0) editor.idleUntilVisible();
    trial.step("the host's window is destroyed, time %d", round);
    editor.parent().destroy();
    if (round % 4 < 2) editor.idleFor(50ms);
  }
}

void closedWithItsWindow(Trial& trial) {
  PluginModule module(trial.plugin());
  for (int round = 0; round < trial.rounds(4); ++round) {
    auto subject = std::make_unique<Subject>(module, true);
    needEditor(trial, *subject);
    ShownEditor editor(trial, *subject);
    editor.open();
    editor.idleFor(30ms);
    editor.forget();
    trial.step("closing the effect with its window open, time %d", round);
    subject.reset();
  }
  trial.step("unloading after effects were closed with their windows open");
}

void unloadedAfterIt(Trial& trial) {
  for (int round = 0; round < trial.rounds(4); ++round) {
    trial.step("loading, time %d", round);
    PluginModule module(trial.plugin());
    {
      Subject subject(module, true);
      needEditor(trial, subject);
      ShownEditor editor(trial, subject);
      editor.open();
      editor.idleFor(30ms);
    }
    trial.step("unloading after the window was open, time %d", round);
  }
  trial.step("living on without the plug-in");
  std::this_thread::sleep_for(50ms);
}

void processEnds(Trial& trial) {
  // What the window holds is not lost, as a sanitizer would tell after the plug-in's own ends.
  if (kSanitized) std::atexit([] { _exit(0); });
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject);
  editor.open();
  editor.idleFor(50ms);
  trial.step("ending the process by exit with the window open");
  trial.passSoFar();
  std::exit(0);
}

// Libraries of the window system end the process where their connection is lost, and an effect that
// uses them cannot help it: neither can it be blamed.
Trial* onTrial = nullptr;
void passAtExit() {
  onTrial->note("the process is ended where the connection is lost");
  onTrial->passSoFar();
  _exit(0);
}

void connectionIsLost(Trial& trial) {
  PluginModule module(trial.plugin());
  onTrial = &trial;
  for (const bool furthestInside : {false, true}) {
    const char* whose = furthestInside ? "its innermost window" : "its window";
    Subject subject(module, true);
    needEditor(trial, subject);
    ShownEditor editor(trial, subject);
    editor.open();
    if (!editor.idleUntilVisible()) trial.leaveOut("its window is not seen");
    std::atexit(passAtExit);  // after what it has registered, so before that
    if (!editor.parent().cutConnection(furthestInside))
      trial.leaveOut("it makes no window in the host's");
    trial.step("idling after the connection of %s was cut", whose);
    for (int times = 0; times < 20; ++times) {
      editor.idle();
      std::this_thread::sleep_for(5ms);
    }
    trial.step("setting parameters after the connection of %s was cut", whose);
    for (int index = 0; index < subject.record().numParams; ++index)
      subject.setParameter(index, trial.randomUnit());
    editor.idle();
    editor.close();
    trial.step("opening again after the connection of %s was cut", whose);
    ShownEditor again(trial, subject);
    if (!again.tryOpen()) trial.note("its window opens no more once its connection was lost");
    again.idleFor(50ms);
  }
}

void displayIsOutOfReach(Trial& trial) {
  // Its parent: of a connection that cannot be made.
  void* const parent = reinterpret_cast<void*>(std::uintptr_t{0x400001});
  ParentWindow::needNamedDisplay(trial);
  for (const char* display : {":4711", "", "nowhere"}) {
    setenv("DISPLAY", display, 1);
    PluginModule module(trial.plugin());
    Subject subject(module, true);
    needEditor(trial, subject);
    passOverWindowErrors();
    trial.step("asking for the window's size where DISPLAY is \"%s\"", display);
    toldWindowSize(subject);
    trial.step("opening the window where DISPLAY is \"%s\"", display);
    const VstIntPtr opened = subject.dispatch(effEditOpen, 0, 0, parent);
    // Few hosts go on then; some do not look at the answer.
    if (opened == 0 && trial.strictness() < 10) continue;
    trial.step("idling after the window was opened where DISPLAY is \"%s\"", display);
    for (int times = 0; times < 10; ++times) subject.dispatch(effEditIdle);
    trial.step("closing the window where DISPLAY is \"%s\"", display);
    subject.dispatch(effEditClose);
    if (opened != 0) trial.note("it says that its window opens where there is no display");
  }
}

constexpr std::array kChecks{
    Check{"idling and closing without a window do no harm", 5, 20, outOfTurn},
    Check{"the parent of the window may go first", 5, 30, hostsWindowGoesFirst},
    Check{"a plug-in is unloaded after its window was open", 5, 30, unloadedAfterIt},
    Check{"the process ends with a window open", 6, 20, processEnds},
    Check{"opening the window twice does no harm", 9, 20, opensTwice},
    Check{"an effect is closed with its window open", 9, 30, closedWithItsWindow},
    Check{"a display out of reach does no harm", 9, 30, displayIsOutOfReach},
    Check{"the window stands the loss of its connection", 10, 12, connectionIsLost},
};

}  // namespace

std::span<const Check> editorEndChecks() {
  return kChecks;
}
