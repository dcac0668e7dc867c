// What the window's calls take: opening, closing, and idle passes with nothing, the meter and a
// slider to draw.
#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <thread>

#include "tests/window/windowhost.h"

namespace {

// The host waits for each of these calls, so the time of the clock on the wall counts, answers of
// the X server included.
void timed(benchmark::State& loop, const std::function<void()>& call) {
  const auto begin = std::chrono::steady_clock::now();
  call();
  loop.SetIterationTime(
      std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
}

void waitForRedraw() {
  std::this_thread::sleep_for(std::chrono::milliseconds(17));  // the toolkit draws every 16
}

// The first opening of a process reads fonts and makes the X connection, and is not
// among those measured.
void open(benchmark::State& loop) {
  WindowHost host;
  host.openEditor();
  host.closeEditor();
  for (auto _ : loop) {
    timed(loop, [&] { host.openOnly(); });
    host.closeEditor();
  }
}

void openingIdles(benchmark::State& loop) {
  WindowHost host;
  host.openEditor();
  host.closeEditor();
  for (auto _ : loop) {
    host.openOnly();
    host.idle();  // the window is mapped
    waitForRedraw();
    timed(loop, [&] { host.dispatch(effEditIdle); });
    host.closeEditor();
  }
}

void close(benchmark::State& loop) {
  WindowHost host;
  for (auto _ : loop) {
    host.openEditor();
    timed(loop, [&] { host.closeEditor(); });
  }
}

void idleUnchanged(benchmark::State& loop) {
  WindowHost host;
  host.openEditor();
  for (auto _ : loop) timed(loop, [&] { host.dispatch(effEditIdle); });
}

// Now and then a pass asks the X server although nothing has happened, and waits for its answer.
void idleAsks(benchmark::State& loop) {
  WindowHost host;
  host.openEditor();
  for (auto _ : loop) {
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    timed(loop, [&] { host.dispatch(effEditIdle); });
  }
}

// change: called once before each pass.
void idleAfter(benchmark::State& loop, const std::function<void(WindowHost&, int)>& change) {
  WindowHost host;
  host.openEditor();
  int pass = 0;
  for (auto _ : loop) {
    change(host, ++pass);
    host.dispatch(effEditIdle);  // takes the value over
    waitForRedraw();
    timed(loop, [&] { host.dispatch(effEditIdle); });
  }
}

void idleMeter(benchmark::State& loop) {
  idleAfter(loop, [](WindowHost& host, int pass) {
    host.setParameter(0, pass % 2 == 0 ? 0.6F : 1.0F);
    host.dispatch(effEditIdle);
    waitForRedraw();
    host.dispatch(effEditIdle);  // the slider is drawn; what is left is the meter
    host.play(0.5F, 0.5F, 22050);
  });
}

void idleSlider(benchmark::State& loop) {
  idleAfter(loop, [](WindowHost& host, int pass) {
    host.setParameter(1, static_cast<float>(pass % 10) * 0.1F);
  });
}

void idleEverything(benchmark::State& loop) {
  idleAfter(loop, [](WindowHost& host, int) { host.setChunk(host.chunk()); });
}

BENCHMARK(open)
    ->Name("editor/open")
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(openingIdles)
    ->Name("editor/first drawing")
    ->UseManualTime()
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(close)
    ->Name("editor/close")
    ->UseManualTime()
    ->Iterations(30)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(idleUnchanged)
    ->Name("editor/idle, nothing changed")
    ->UseManualTime()
    ->Iterations(5000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(idleAsks)
    ->Name("editor/idle, nothing changed, X server asked")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(idleMeter)
    ->Name("editor/idle, meter drawn")
    ->UseManualTime()
    ->Iterations(60)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(idleSlider)
    ->Name("editor/idle, slider drawn")
    ->UseManualTime()
    ->Iterations(60)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(idleEverything)
    ->Name("editor/idle, whole state set")
    ->UseManualTime()
    ->Iterations(60)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
