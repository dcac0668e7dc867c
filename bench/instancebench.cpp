// What making an instance, saving it and restoring it take, and a block of sound beside them.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "effect/trelvan.h"
#include "tests/support/processhost.h"
#include "tests/support/testsignals.h"

namespace {

// Stored defaults are looked for, as always; bench/run sees to it that there are none.
void makeAndEnd(benchmark::State& loop) {
  for (auto _ : loop) {
    auto plugin = std::make_unique<Trelvan>(processHost);
    benchmark::DoNotOptimize(plugin.get());
  }
}

void getChunk(benchmark::State& loop) {
  Trelvan plugin(processHost);
  void* chunk = nullptr;
  for (auto _ : loop) {
    benchmark::DoNotOptimize(plugin.getChunk(&chunk, false));
    benchmark::ClobberMemory();
  }
}

void setChunk(benchmark::State& loop) {
  Trelvan plugin(processHost);
  void* chunk = nullptr;
  const VstInt32 size = plugin.getChunk(&chunk, false);
  const auto* bytes = static_cast<const char*>(chunk);
  std::vector<char> kept(bytes, bytes + size);
  for (auto _ : loop) {
    if (plugin.setChunk(kept.data(), size, false) != 0) loop.SkipWithError("refused");
    benchmark::ClobberMemory();
  }
}

void playBlock(benchmark::State& loop) {
  Trelvan plugin(processHost);
  plugin.setPresetNo(14);  // full width
  plugin.resume();
  auto sound = makeSignal<float>(Signal::kNoise, 1024);
  auto out = sound;
  float* ins[] = {sound.left.data(), sound.right.data()};
  float* outs[] = {out.left.data(), out.right.data()};
  for (auto _ : loop) {
    plugin.processReplacing(ins, outs, 1024);
    benchmark::ClobberMemory();
  }
}

BENCHMARK(playBlock)->Name("instance/a block of 1024");
BENCHMARK(makeAndEnd)->Name("instance/make and end");
BENCHMARK(getChunk)->Name("instance/getChunk");
BENCHMARK(setChunk)->Name("instance/setChunk");

}  // namespace
