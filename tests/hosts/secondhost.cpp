// A second VST 2.4 host for files, which shares nothing with widen but the published interface:
// what both make of a file is compared sample by sample.
//
// secondhost PLUGIN RATE BLOCK CHANNELS <in >out
// PLUGIN: the binary. RATE: Hz. BLOCK: frames. CHANNELS: 1 or 2. in: interleaved floats, out:
// stereo floats, as many frames, without the latency. Without BLOCK and CHANNELS it prints the
// pins.
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

// The record by its published offsets.
struct Record {
  std::int32_t magic;
  std::intptr_t (*dispatch)(Record*, std::int32_t, std::int32_t, std::intptr_t, void*, float);
  void* accumulate;
  void* set;
  void* get;
  std::int32_t programs, parameters, inputs, outputs, flags;
  std::intptr_t reserved[2];
  std::int32_t delay;  // frames
  char unused[36];
  void (*process)(Record*, float**, float**, std::int32_t);
  char rest[64];
};
static_assert(sizeof(Record) == 192);

struct Time {
  double position, rate, nanoseconds, beats, tempo, bar, cycleStart, cycleEnd;
  std::int32_t numerator, denominator, offset, frames, clock, flags;
};
static_assert(sizeof(Time) == 88);

using Callback = std::intptr_t (*)(Record*, std::int32_t, std::int32_t, std::intptr_t, void*,
                                   float);

int sampleRate = 0;
int blockSize = 1024;
Time now{};

std::intptr_t told(Record*, std::int32_t opcode, std::int32_t, std::intptr_t, void* pointer,
                   float) {
  switch (opcode) {
    case 1:  // version
      return 2400;
    case 7:  // time: 120 beats a minute in 4/4, playing
      now.rate = sampleRate;
      now.tempo = 120;
      now.numerator = now.denominator = 4;
      now.flags = 1 << 1 | 1 << 10 | 1 << 13;
      return reinterpret_cast<std::intptr_t>(&now);
    case 13:  // inputs and outputs or the latency have changed
    case 42:  // so has what is shown
      return 1;
    case 16:
      return sampleRate;
    case 17:
      return blockSize;
    case 23:  // at work without a person who waits
      return 4;
    case 32:
    case 33:
      std::strcpy(static_cast<char*>(pointer), "Second");
      return 1;
    default:
      return 0;
  }
}

[[noreturn]] void fail(const std::string& why) {
  std::fprintf(stderr, "secondhost: %s\n", why.c_str());
  std::exit(1);
}

// An effect that is switched on, with its pins.
struct Instance {
  Record* record;
  std::vector<std::vector<float>> pins;
  std::vector<float*> in;
  std::vector<float*> out;

  explicit Instance(Record* made) : record(made) {
    if (record == nullptr || record->magic != 0x56737450) fail("no effect");
    call(0);                             // open
    call(10, 0, nullptr, sampleRate);    // rate
    call(11, blockSize, nullptr, 0.0F);  // block
    pins.resize(static_cast<std::size_t>(record->inputs + record->outputs),
                std::vector<float>(static_cast<std::size_t>(blockSize)));
    for (std::vector<float>& pin : pins) (in.size() < inputs() ? in : out).push_back(pin.data());
    call(12, 1, nullptr, 0.0F);  // on
    call(71);                    // start
  }
  std::size_t inputs() const { return static_cast<std::size_t>(record->inputs); }
  void call(std::int32_t opcode, std::intptr_t value = 0, void* pointer = nullptr,
            float option = 0.0F) const {
    record->dispatch(record, opcode, 0, value, pointer, option);
  }
  void run(int frames) { record->process(record, in.data(), out.data(), frames); }
  void end() const {
    call(72);  // stop
    call(12);  // off
    call(1);   // close
  }
};

Record* make(const char* path) {
  void* module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) fail(dlerror());
  void* entry = dlsym(module, "VSTPluginMain");
  if (entry == nullptr) entry = dlsym(module, "main");
  if (entry == nullptr) fail("no entry point");
  return reinterpret_cast<Record* (*)(Callback)>(entry)(told);
}

std::vector<float> readAll() {
  std::vector<float> all;
  std::vector<float> piece(1 << 16);
  std::size_t count = 0;
  while ((count = std::fread(piece.data(), sizeof(float), piece.size(), stdin)) > 0)
    all.insert(all.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(count));
  return all;
}

}  // namespace

int main(int count, char** words) {
  if (count != 3 && count != 5) fail("usage: secondhost PLUGIN RATE [BLOCK CHANNELS <in >out]");
  sampleRate = std::atoi(words[2]);
  if (count == 3) {
    const Instance effect(make(words[1]));
    std::printf("%d %d\n", effect.record->inputs, effect.record->outputs);
    effect.end();
    return 0;
  }
  blockSize = std::atoi(words[3]);
  const auto channels = static_cast<std::size_t>(std::atoi(words[4]));
  std::vector<float> sound = readAll();
  const std::size_t frames = sound.size() / channels;

  // One input: a side each, through an effect of its own.
  std::vector<Instance> effects;
  effects.emplace_back(make(words[1]));
  if (effects[0].record->outputs == 0) fail("no output");
  if (channels == 2 && effects[0].inputs() == 1) effects.emplace_back(make(words[1]));

  std::vector<float> result;  // all that comes, without the latency
  std::int64_t drop = 0;      // frames of latency that are still to come
  std::int64_t delay = 0;
  for (std::size_t at = 0; result.size() < 2 * frames; at += static_cast<std::size_t>(blockSize)) {
    std::size_t length = static_cast<std::size_t>(blockSize);
    // The sound's last block ends with it; silence follows.
    if (at < frames && frames - at < length) length = frames - at;
    now.position = static_cast<double>(at);
    for (std::size_t side = 0; side < effects.size(); ++side) {
      Instance& effect = effects[side];
      for (std::size_t pin = 0; pin < effect.inputs(); ++pin) {
        for (std::size_t i = 0; i < length; ++i) {
          const std::size_t channel = channels == 1 ? 0 : effects.size() == 2 ? side : pin;
          effect.in[pin][i] = pin > 1 || at >= frames ? 0.0F : sound[(at + i) * channels + channel];
        }
      }
      effect.run(static_cast<int>(length));
    }
    drop += effects[0].record->delay - delay;
    delay = effects[0].record->delay;
    for (; drop < 0; ++drop) result.insert(result.end(), 2, 0.0F);
    const std::vector<float*>& left = effects.front().out;
    const std::vector<float*>& right = effects.back().out;
    for (std::size_t i = 0; i < length; ++i) {
      if (drop > 0) {
        --drop;
        continue;
      }
      result.push_back(left[0][i]);
      result.push_back(effects.size() == 2 || right.size() < 2 ? right[0][i] : right[1][i]);
    }
    at -= static_cast<std::size_t>(blockSize) - length;
  }
  for (const Instance& effect : effects) effect.end();
  std::fwrite(result.data(), sizeof(float), 2 * frames, stdout);
  std::fflush(stdout);
  std::_Exit(0);  // what the effects' libraries do at an end is not looked at here
}
