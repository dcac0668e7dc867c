// Keeps the bar's names in step with the bank, of which hosts tell on any thread.
#pragma once

#include <atomic>
#include <thread>

class CPresetSystemEffect;
class PresetBar;

// Views may be touched on the thread that opened the window only. Others mark, and the next idle
// pass does it.
class BarNames {
 public:
  BarNames(CPresetSystemEffect* namedEffect, PresetBar& namedBar)
      : effect(namedEffect), bar(namedBar) {}

  void opened() { windowThread = std::this_thread::get_id(); }
  void idle();  // the window's thread

  // Any thread. name: at most 24 characters.
  void presetsChanged();
  void nameChanged(const char* name);

 private:
  bool onWindowThread() const { return windowThread.load() == std::this_thread::get_id(); }
  void refresh();

  CPresetSystemEffect* effect;
  PresetBar& bar;
  std::atomic<bool> refreshWanted{false};
  std::atomic<std::thread::id> windowThread{};
};
