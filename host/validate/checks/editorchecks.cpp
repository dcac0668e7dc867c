// Checks of the window as every host opens, shows and closes it.
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "host/validate/check.h"
#include "host/validate/means/patience.h"
#include "host/validate/means/possessions.h"
#include "host/validate/means/showneditor.h"

namespace {

using namespace std::chrono_literals;
using Size = HostCallback::Size;

bool same(Size a, Size b) {
  return a.width == b.width && a.height == b.height;
}

// What the effect tells; fails the check where nobody can use it.
Size saneSize(Trial& trial, Subject& subject, const char* when) {
  trial.step("asking for the window's size %s", when);
  const auto told = toldWindowSize(subject);
  if (!told) trial.fail("it tells no size of its window %s", when);
  if (!isSane(*told))
    trial.fail("it tells a window of %d x %d pixels %s", told->width, told->height, when);
  return *told;
}

void tellsItsSize(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ParentWindow::needDisplay(trial);
  trial.step("asking for the window's size before it opens");
  const auto before = toldWindowSize(subject);
  if (before && !isSane(*before)) {
    trial.fail("it tells a window of %d x %d pixels before it opens", before->width,
               before->height);
  }
  ShownEditor editor(trial, subject);
  editor.open();
  const Size open = saneSize(trial, subject, "while it is open");
  editor.idleFor(100ms);
  saneSize(trial, subject, "while it is open");
  editor.close();
  trial.step("asking for the window's size after it was closed");
  toldWindowSize(subject);
  if (!before) trial.note("it tells no size before the window is open");
  if (before && !same(*before, open)) {
    trial.note("its window is %d x %d pixels before it opens and %d x %d then", before->width,
               before->height, open.width, open.height);
  }
}

void isSeen(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject);
  if (!editor.tryOpen()) trial.fail("its window does not open");
  if (!editor.idleUntilVisible()) {
    if (editor.parent().children().empty())
      trial.fail("it says that its window is open, but has made none in the host's");
    trial.fail("its window stays hidden in the host's");
  }
  const Size told = saneSize(trial, subject, "while it is open");
  for (const ParentWindow::Child& child : editor.parent().children()) {
    if (child.visible && !same(child.size, told)) {
      trial.note("it tells %d x %d pixels, but its window has %d x %d", told.width, told.height,
                 child.size.width, child.size.height);
    }
  }
  editor.idleFor(200ms);
  if (!editor.parent().isPainted()) trial.note("its window is all of one colour");
}

void nothingIsLeft(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject);
  editor.open();
  editor.idleUntilVisible();
  editor.close();
  trial.step("waiting for its window to go");
  const Patience patience(2.0);  // seconds
  while (!editor.parent().children().empty()) {
    if (patience.over()) trial.fail("its window is still in the host's after it was closed");
    std::this_thread::sleep_for(5ms);
  }
}

void hasTheSizeItAsksFor(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject);
  editor.open();
  editor.idleUntilVisible();
  editor.idleFor(500ms);
  const auto asked = editor.askedSize();
  if (!asked) trial.leaveOut("it asks the host for no size");
  const Size told = saneSize(trial, subject, "after it asked the host for one");
  if (!same(*asked, told)) {
    trial.fail("it asks the host for a window of %d x %d pixels and tells %d x %d", asked->width,
               asked->height, told.width, told.height);
  }
}

void opensInSmallAndHidden(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject, ShownEditor::Parent::smallAndHidden);
  editor.open();
  editor.idleFor(100ms);
  const Size told = saneSize(trial, subject, "in a host's window of 1 x 1 pixel, not shown yet");
  if (told.width == 1 || told.height == 1) {
    trial.fail("it tells a window of %d x %d pixels in a host's that is 1 x 1 and not shown yet",
               told.width, told.height);
  }
  editor.show();
  if (!editor.idleUntilVisible())
    trial.fail("its window stays hidden in a host's that was shown after it opened");
  const auto children = editor.parent().children();
  const bool wide = std::any_of(children.begin(), children.end(), [](const auto& child) {
    return child.visible && child.size.width > 1 && child.size.height > 1;
  });
  if (!wide) trial.fail("its window stays as small as the host's was when it opened");
}

void standsTheHostsSizes(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject);
  editor.open();
  editor.idleUntilVisible();
  const Size told = saneSize(trial, subject, "while it is open");
  for (int round = 0; round < trial.rounds(10); ++round) {
    const Size size{trial.randomInt(1, 2 * told.width), trial.randomInt(1, 2 * told.height)};
    trial.step("idling in a host's window of %d x %d pixels", size.width, size.height);
    editor.parent().resize(size);
    editor.idle();
    editor.idle();
  }
  editor.parent().resize(told);
  if (!editor.idleUntilVisible())
    trial.fail("its window is gone after the host's changed its size");
}

// What grows with the openings, after the first ones, at which libraries fill what they keep.
void opensAgainAndAgain(Trial& trial) {
  constexpr int kInstances = 3;
  constexpr int kUncounted = 6;         // rounds at the start
  constexpr int kFewest = 10;           // openings that tell growth from chance
  constexpr double kLongEnough = 12.0;  // seconds
  PluginModule module(trial.plugin());
  std::vector<std::unique_ptr<Subject>> subjects;
  subjects.reserve(kInstances);
  for (int i = 0; i < kInstances; ++i) subjects.push_back(std::make_unique<Subject>(module, true));
  needEditor(trial, *subjects.front());
  ParentWindow::needDisplay(trial);
  const Patience patience(kLongEnough);
  const auto unopened = possessions();
  std::optional<Possessions> before;
  int openings = 0;
  for (int round = 0; round < trial.rounds(50) && !patience.over(); ++round) {
    if (round == kUncounted) before = possessions();
    // one, two or three at a time, closed in the order of opening
    std::vector<std::unique_ptr<ShownEditor>> editors;
    for (int i = 0; i <= round % kInstances; ++i) {
      editors.push_back(
          std::make_unique<ShownEditor>(trial, *subjects[static_cast<std::size_t>(i)]));
      if (round == 0) editors.back()->open();
      if (round > 0 && !editors.back()->tryOpen())
        trial.fail("its window does not open any more (time %d, instance %d)", round, i);
      if (round >= kUncounted) ++openings;
    }
    trial.step("idling %zu windows, time %d", editors.size(), round);
    for (int times = 0; times < 3; ++times) {
      for (const auto& editor : editors) editor->idle();
      std::this_thread::sleep_for(2ms);
    }
    for (const auto& editor : editors) editor->close();
  }
  trial.step("counting what the windows have left");
  auto after = possessions();
  if (!unopened || !after) return;
  if (after->hasChildren && !unopened->hasChildren)
    trial.fail("a process is left after its window was opened and closed");
  if (openings < kFewest || !before) {
    trial.note("it opens too slowly to count what its window leaves");
    return;
  }
  const Patience toEnd(2.0);  // seconds: threads end in their own time
  while (!toEnd.over() && after->threads - before->threads >= openings / 2) {
    std::this_thread::sleep_for(10ms);
    after = possessions();
  }
  const auto check = [&](int now, int then, const char* what) {
    if (now - then >= openings / 2) {
      trial.fail("%d %s more after its window was opened and closed %d times", now - then, what,
                 openings);
    }
  };
  check(after->threads, before->threads, "threads");
  check(after->descriptors, before->descriptors, "open files or connections");
}

constexpr std::array kChecks{
    Check{"the window tells its size", 4, 20, tellsItsSize},
    Check{"the window opens in its parent and is seen", 4, 20, isSeen},
    Check{"nothing is left of a window that is closed", 5, 20, nothingIsLeft},
    Check{"the window has the size that it asks the host for", 5, 20, hasTheSizeItAsksFor},
    Check{"the window opens in a parent that is small and hidden", 5, 30, opensInSmallAndHidden},
    Check{"the window stands every size of its parent", 5, 30, standsTheHostsSizes},
    Check{"the window opens and closes again and again", 5, 60, opensAgainAndAgain},
};

}  // namespace

std::span<const Check> editorChecks() {
  return kChecks;
}
