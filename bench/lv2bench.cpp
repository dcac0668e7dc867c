// What LV2 costs, its ports connected once: a block through the plug-in's descriptor beside one
// through the effect's record, in short turns of one process, by the thread's own clock, medians.
#include <lv2/core/lv2.h>

#include <array>
#include <cstdio>
#include <vector>

#include "bench/median.h"
#include "bench/threadtime.h"
#include "plugin/createeffectinstance.h"
#include "tests/support/processhost.h"
#include "tests/support/testsignals.h"

extern "C" const LV2_Descriptor* lv2_descriptor(std::uint32_t index);

namespace {

constexpr int kRounds = 20;          // with new instances: where they lie in memory counts too
constexpr int kTurns = 25;           // of each in a round
constexpr int kFramesATurn = 32768;  // the clock itself costs some hundred ns
constexpr float kRate = 44100.0F;    // Hz
std::array<float, 5> values{0.75F, 0.25F, 0.25F, 1.0F, 0.0F};

class Record {
 public:
  Record(Stereo<float>& in, Stereo<float>& out)
      : ins{in.left.data(), in.right.data()},
        outs{out.left.data(), out.right.data()},
        effect(createEffectRecord(processHost)) {
    effect->dispatcher(effect, effSetSampleRate, 0, 0, nullptr, kRate);
    for (VstInt32 i = 0; i < 5; ++i)
      effect->setParameter(effect, i, values[static_cast<size_t>(i)]);
    effect->dispatcher(effect, effMainsChanged, 0, 1, nullptr, 0.0F);
  }
  void play(int frames) { effect->processReplacing(effect, ins, outs, frames); }

 private:
  float* ins[2];
  float* outs[2];
  AEffect* effect;  // ends with the process
};

class Lv2 {
 public:
  Lv2(Stereo<float>& in, Stereo<float>& out)
      : handle(descriptor.instantiate(&descriptor, static_cast<double>(kRate), "", nullptr)) {
    for (std::uint32_t i = 0; i < 5; ++i) descriptor.connect_port(handle, 4 + i, &values[i]);
    float* audio[] = {in.left.data(), in.right.data(), out.left.data(), out.right.data()};
    for (std::uint32_t port = 0; port < 4; ++port)
      descriptor.connect_port(handle, port, audio[port]);
    descriptor.activate(handle);
  }
  void play(int frames) { descriptor.run(handle, static_cast<std::uint32_t>(frames)); }

 private:
  const LV2_Descriptor& descriptor = *lv2_descriptor(0);
  LV2_Handle handle;  // ends with the process
};

template <typename Player>
double turn(Player& player, int block) {
  const int blocks = kFramesATurn / block;
  const double before = threadTime();
  for (int i = 0; i < blocks; ++i) player.play(block);
  return (threadTime() - before) / blocks / block;
}

}  // namespace

int main() {
  std::puts("| block | record, ns a frame | LV2, ns a frame | LV2 of record |");
  std::puts("|------:|------:|------:|------:|");
  for (const int block : {512, 64, 16}) {
    auto in = makeSignal<float>(Signal::kNoise, static_cast<std::size_t>(block));
    auto out = in;
    std::vector<double> direct;
    std::vector<double> adapted;
    for (int round = 0; round < kRounds; ++round) {
      Record record(in, out);
      Lv2 lv2(in, out);
      for (int i = 0; i < kTurns; ++i) {
        direct.push_back(turn(record, block));
        adapted.push_back(turn(lv2, block));
      }
    }
    const double recordTime = median(direct);
    const double lv2Time = median(adapted);
    std::printf("| %d | %.3f | %.3f | %.3f |\n", block, recordTime, lv2Time, lv2Time / recordTime);
  }
}
