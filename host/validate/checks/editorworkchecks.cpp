// Checks of a window that is open while the host goes on working: sound, parameters, states.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <random>
#include <thread>
#include <vector>

#include "host/validate/check.h"
#include "host/validate/means/meanwhile.h"
#include "host/validate/means/playingthread.h"
#include "host/validate/means/showneditor.h"
#include "host/validate/means/toldstate.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr double kRate = 48000.0;  // Hz
constexpr auto kShort = 300ms;
constexpr auto kBetweenChanges = std::chrono::microseconds(200);

void idlesAtAnyRate(Trial& trial) {
  constexpr double kSlow = 10.0;  // ms, of the 16 between two pictures
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject);
  editor.open();
  editor.idleUntilVisible();
  std::vector<double> times;  // ms
  for (const int hertz : {15, 60}) {
    trial.step("idling the window at %d Hz", hertz);
    const auto end = Clock::now() + 500ms;
    while (Clock::now() < end) {
      const auto begin = Clock::now();
      editor.idle();
      times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
      std::this_thread::sleep_for(std::chrono::microseconds(1'000'000 / hertz));
    }
  }
  std::sort(times.begin(), times.end());
  const double median = times[times.size() / 2];
  if (median > kSlow)
    trial.note("an idle takes %.1f ms in the median, %.1f at most", median, times.back());
}

void showSomeTimes(Trial& trial, Subject& subject) {
  for (int round = 0; round < trial.rounds(2); ++round) {
    ShownEditor editor(trial, subject);
    editor.open();
    editor.idleFor(kShort / 2);
  }
}

void playsMeanwhile(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  needProcessing(trial, subject);
  ParentWindow::needDisplay(trial);
  subject.start(kRate, PlayingThread::kBlock);
  PlayingThread player(trial, subject);
  showSomeTimes(trial, subject);
  player.endAndCheck("while the window opened and closed");
}

void changesMeanwhile(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ShownEditor editor(trial, subject);
  editor.open();
  editor.idleUntilVisible();
  const int parameters = subject.record().numParams;
  const bool hasChunk = subject.has(effFlagsProgramChunks);
  const auto state = hasChunk ? subject.chunk() : std::vector<unsigned char>();
  for (int round = 0; round < trial.rounds(15); ++round) {
    trial.step("setting all parameters while the window is open, time %d", round);
    for (int index = 0; index < parameters; ++index)
      subject.setParameter(index, trial.randomUnit());
    editor.idle();
    trial.step("loading a state while the window is open, time %d", round);
    if (!state.empty() && round % 3 == 0) subject.setChunk(state);
    editor.idle();
    trial.step("setting a program while the window is open, time %d", round);
    if (subject.record().numPrograms > 0 && round % 3 == 1)
      subject.dispatch(effSetProgram, 0, trial.randomInt(0, subject.record().numPrograms - 1));
    editor.idle();
    std::this_thread::sleep_for(5ms);
  }
}

void automatedMeanwhile(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  const int parameters = subject.record().numParams;
  if (parameters == 0) trial.leaveOut("it has no parameters");
  ParentWindow::needDisplay(trial);
  trial.step("opening the window while another thread sets parameters");
  const Meanwhile thread(
      [&] {
        // This thread's own: the trial's chance is the check's thread's.
        static thread_local std::minstd_rand chance(1);
        const int index = static_cast<int>(chance() % static_cast<unsigned>(parameters));
        const float value = static_cast<float>(chance() % 1001) / 1000.0F;
        subject.setParameter(index, value);
        subject.parameter(index);
      },
      kBetweenChanges);
  showSomeTimes(trial, subject);
}

void statesMeanwhile(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  needChunk(trial, subject);
  ParentWindow::needDisplay(trial);
  const auto first = subject.chunk();
  changeAtRandom(trial, subject, 1);
  const auto second = subject.chunk();
  if (first.empty() || second.empty()) trial.leaveOut("its chunk is empty");
  trial.step("opening the window while another thread loads states");
  const Meanwhile thread(
      [&] {
        subject.setChunk(first);
        subject.setChunk(second);
        subject.chunk();
      },
      kBetweenChanges);
  showSomeTimes(trial, subject);
}

// As hosts do that have a thread for plug-ins' windows.
void livesOnItsOwnThread(Trial& trial) {
  PluginModule module(trial.plugin());
  Subject subject(module, true);
  needEditor(trial, subject);
  ParentWindow::needDisplay(trial);
  for (int round = 0; round < trial.rounds(2); ++round) {
    trial.step("opening the window on a thread of its own");
    std::future<void> shown = std::async(std::launch::async, [&] {
      ShownEditor editor(trial, subject);
      editor.open();
      editor.idleFor(kShort / 2);
    });
    while (shown.wait_for(1ms) != std::future_status::ready) toldState(subject);
    shown.get();
  }
}

constexpr std::array kChecks{
    Check{"the window is idled slowly and quickly", 5, 20, idlesAtAnyRate},
    Check{"an audio thread plays while the window is open", 5, 30, playsMeanwhile},
    Check{"parameters and states change while the window is open", 5, 30, changesMeanwhile},
    Check{"another thread sets parameters while the window is open", 8, 30, automatedMeanwhile},
    Check{"another thread loads states while the window is open", 8, 30, statesMeanwhile},
    Check{"the window lives on a thread of its own", 8, 30, livesOnItsOwnThread},
};

}  // namespace

std::span<const Check> editorWorkChecks() {
  return kChecks;
}
