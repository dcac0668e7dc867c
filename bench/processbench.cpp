// Time a frame takes, in the plug-in and in the reference transcription: settled,
// gliding and bypassed.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "effect/trelvan.h"
#include "tests/support/processhost.h"
#include "tests/support/reference.h"
#include "tests/support/testsignals.h"

namespace {

enum class State { kSettled, kGliding, kBypassed };

constexpr int kBlocks[] = {16, 64, 256, 1024, 4096};  // frames
constexpr int kMoveEvery = 4096;  // frames at 44100 Hz: a third of the glides' closing time

void process(Trelvan& plugin, float** in, float** out, int frames) {
  plugin.processReplacing(in, out, frames);
}
void process(Trelvan& plugin, double** in, double** out, int frames) {
  plugin.processDoubleReplacing(in, out, frames);
}
void process(Reference& reference, float** in, float** out, int frames) {
  reference.processReplacing(in, out, frames, true, true);
}
void process(Reference& reference, double** in, double** out, int frames) {
  reference.processDoubleReplacing(in, out, frames, true, true);
}

template <typename Widener>
void moveParameters(Widener& widener, bool up) {
  widener.setParameter(0, up ? 0.9F : 0.4F);
  widener.setParameter(1, up ? 0.3F : 0.1F);
  widener.setParameter(2, up ? 0.6F : 0.2F);
}

template <typename Sample, typename Widener>
void run(benchmark::State& loop, Widener& widener, State state, int frames) {
  auto in = makeSignal<Sample>(Signal::kNoise, static_cast<std::size_t>(frames));
  auto out = in;
  Sample* ins[] = {in.left.data(), in.right.data()};
  Sample* outs[] = {out.left.data(), out.right.data()};
  widener.setSampleRate(44100.0F);
  moveParameters(widener, true);
  widener.setParameter(3, state == State::kBypassed ? 0.0F : 1.0F);
  widener.resume();
  int since = 0;
  bool up = false;
  for (int warmed = 0; warmed < 44100; warmed += frames) process(widener, ins, outs, frames);
  for (auto _ : loop) {
    if (state == State::kGliding && (since += frames) >= kMoveEvery) {
      since = 0;
      moveParameters(widener, up);
      up = !up;
    }
    process(widener, ins, outs, frames);
    benchmark::ClobberMemory();
  }
}

template <typename Sample>
void add(const std::string& name, State state, int frames) {
  benchmark::RegisterBenchmark((name + "/plugin").c_str(), [state, frames](benchmark::State& loop) {
    Trelvan plugin(processHost);
    run<Sample>(loop, plugin, state, frames);
  });
  benchmark::RegisterBenchmark((name + "/reference").c_str(),
                               [state, frames](benchmark::State& loop) {
                                 const auto reference = std::make_unique<Reference>();
                                 run<Sample>(loop, *reference, state, frames);
                               });
}

const bool added = [] {
  constexpr const char* kStates[] = {"settled", "gliding", "bypassed"};
  for (const State state : {State::kSettled, State::kGliding, State::kBypassed}) {
    for (const int frames : kBlocks) {
      const std::string name =
          std::string(kStates[static_cast<int>(state)]) + '/' + std::to_string(frames);
      add<float>("process/single/" + name, state, frames);
      add<double>("process/double/" + name, state, frames);
    }
  }
  return true;
}();

}  // namespace
