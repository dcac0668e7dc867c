// Chunks, parameters and processing on three threads at once, as hosts do it; also meant for the
// thread sanitizer.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "tests/module/instance.h"
#include "tests/support/atonce.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;

constexpr int kRounds = 300;

// Keeps no record, so that nothing of the test orders the threads.
VstIntPtr threadHost(AEffect* effect, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
  if (opcode == audioMasterVersion) return kVstVersion;
  if (opcode == audioMasterUpdateDisplay && effect != nullptr) effect->getParameter(effect, 0);
  return 0;
}

// Processes until told to stop; afterwards tells how many blocks, and whether all
// samples were numbers.
class AudioThread {
 public:
  explicit AudioThread(AEffect* processed) : effect(processed), thread([this] { run(); }) {}
  ~AudioThread() { stop(); }

  void stop() {
    stopping.store(true, std::memory_order_relaxed);
    if (thread.joinable()) thread.join();
  }

  int blocks = 0;
  bool allFinite = true;

 private:
  void run() {
    const Audio input = noise(64);
    Audio in = input;
    while (!stopping.load(std::memory_order_relaxed)) {
      in = input;
      float* buffers[] = {in.left.data(), in.right.data()};
      effect->processReplacing(effect, buffers, buffers, 64);
      // some hosts ask these here
      effect->dispatcher(effect, effCanBeAutomated, 0, 0, nullptr, 0.0F);
      effect->getParameter(effect, 0);
      allFinite = allFinite && isFinite(in);
      ++blocks;
    }
  }

  AEffect* effect;
  std::atomic<bool> stopping{false};
  std::thread thread;  // last: it uses all the others
};

class ChunkThreads : public testing::Test {
 protected:
  ChunkThreads() {
    bank[3] = {"wide", {1.0F, 1.0F, 1.0F, 1.0F, 0.0F}};
    bank[4] = {"turned", {0.5F, 0.0F, 0.25F, 1.0F, 1.0F}};
    instance.setSampleRate(48000.0F);
    instance.mainsChanged(true);
  }

  imagebytes::Bank bank = distinctBank();
  LoadedModule module;
  Instance instance{module, threadHost};
};

TEST_F(ChunkThreads, SetChunkWhileAnotherThreadProcesses) {
  AudioThread audio(instance.effect);
  for (int i = 0; i < kRounds; ++i) {
    EXPECT_EQ(instance.setChunk(imagebytes::chunk(bank, i % 5, i % 2 == 0)), 0);
  }
  EXPECT_EQ(instance.setChunk(imagebytes::chunk(bank, 4)), 0);
  audio.stop();
  EXPECT_GT(audio.blocks, 0);
  EXPECT_TRUE(audio.allFinite);
  EXPECT_EQ(instance.chunk(), imagebytes::chunk(bank, 4));
  for (VstInt32 i = 0; i < 5; ++i)
    EXPECT_EQ(instance.getParameter(i), bank[4].values[static_cast<std::size_t>(i)]);
}

TEST_F(ChunkThreads, GetChunkWhileAnotherThreadProcesses) {
  instance.setChunk(imagebytes::chunk(bank, 3));
  AudioThread audio(instance.effect);
  for (int i = 0; i < kRounds; ++i) EXPECT_EQ(instance.chunk(i % 2), imagebytes::chunk(bank, 3));
  audio.stop();
  EXPECT_TRUE(audio.allFinite);
}

TEST_F(ChunkThreads, OldChunksWhileAnotherThreadProcesses) {
  AudioThread audio(instance.effect);
  for (int i = 0; i < kRounds; ++i) {
    EXPECT_EQ(instance.setChunk(imagebytes::oldChunk(bank, 32, 5, i % 5, i % 2 == 0)), 0);
  }
  audio.stop();
  EXPECT_TRUE(audio.allFinite);
}

TEST_F(ChunkThreads, AutomationFromAThirdThreadInBetween) {
  AudioThread audio(instance.effect);
  std::thread automation([&] {
    for (int i = 0; i < 20 * kRounds; ++i) {
      const VstInt32 index = i % 5;
      instance.setParameter(index, static_cast<float>(i % 17) / 16.0F);
      const float read = instance.getParameter(index);
      EXPECT_GE(read, 0.0F);
      EXPECT_LE(read, 1.0F);
    }
  });
  for (int i = 0; i < kRounds; ++i) {
    EXPECT_EQ(instance.setChunk(imagebytes::chunk(bank, i % 5)), 0);
    EXPECT_EQ(instance.chunk().size(), 10545U);
    instance.text(effGetParamDisplay, 1);
  }
  automation.join();
  EXPECT_EQ(instance.setChunk(imagebytes::chunk(bank, 3)), 0);
  audio.stop();
  EXPECT_TRUE(audio.allFinite);
  EXPECT_EQ(instance.chunk(), imagebytes::chunk(bank, 3));
}

// Each copy is whole, though another thread saves and a third one renames meanwhile.
TEST_F(ChunkThreads, TwoThreadsSaveWhileAThirdRenames) {
  instance.setChunk(imagebytes::chunk(bank, 3));
  const std::string names[] = {std::string(23, 'a'), std::string(12, 'b')};
  std::vector<Bytes> possible{imagebytes::chunk(bank, 3)};
  for (const std::string& name : names) {
    bank[3].name = name;
    possible.push_back(imagebytes::chunk(bank, 3));
  }
  std::atomic<int> torn{0};
  std::atomic<int> saving{2};
  const auto save = [&] {
    for (int i = 0; i < 10 * kRounds; ++i) {
      if (std::count(possible.begin(), possible.end(), instance.chunk(i % 2)) != 1) ++torn;
    }
    --saving;
  };
  std::thread first(save);
  std::thread second(save);
  for (int i = 0; saving > 0; ++i) {
    std::string name = names[i % 2];
    instance.send(effSetProgramName, 0, 0, name.data());
  }
  first.join();
  second.join();
  EXPECT_EQ(torn, 0);
}

TEST_F(ChunkThreads, WhatOneThreadIsHandedIsNotOverwrittenByAnother) {
  void* data = nullptr;
  const VstIntPtr size = instance.send(effGetChunk, 0, 0, &data);
  const auto* bytes = static_cast<const unsigned char*>(data);
  const Bytes before(bytes, bytes + size);
  std::thread([&] {
    instance.setChunk(imagebytes::chunk(bank, 4));
    EXPECT_EQ(instance.chunk(), imagebytes::chunk(bank, 4));
  }).join();
  EXPECT_EQ(Bytes(bytes, bytes + size), before);
  EXPECT_EQ(instance.chunk(), imagebytes::chunk(bank, 4));
}

// One of the two is left, with the preset that it selects; nobody saves anything in between.
TEST_F(ChunkThreads, TwoThreadsRestoreWhileAThirdSaves) {
  imagebytes::Bank other = bank;
  for (imagebytes::Preset& preset : other) preset = {"the other", {0.5F, 0.5F, 0.5F, 1.0F, 1.0F}};
  const Bytes states[] = {imagebytes::chunk(bank, 3), imagebytes::chunk(other, 4)};
  const auto isWhole = [&](const Bytes& saved) { return saved == states[0] || saved == states[1]; };
  instance.setChunk(states[0]);
  std::atomic<bool> ended{false};
  std::atomic<int> mixed{0};
  std::thread saving([&] {
    while (!ended) {
      if (!isWhole(instance.chunk())) ++mixed;
    }
  });
  constexpr int kRestorings = 2 * kRounds;
  AtOnce both(kRestorings, [&](int) { instance.setChunk(states[0]); });
  for (int round = 1; round <= kRestorings; ++round) {
    both.round(round, [&] { instance.setChunk(states[1]); });
    const Bytes left = instance.chunk();
    if (!isWhole(left)) ++mixed;
    const imagebytes::Preset& current = left == states[0] ? bank[3] : other[4];
    for (VstInt32 index = 0; index < 5; ++index) {
      if (instance.getParameter(index) != current.values[static_cast<std::size_t>(index)]) ++mixed;
    }
  }
  ended = true;
  saving.join();
  EXPECT_EQ(mixed, 0);
}

TEST_F(ChunkThreads, NamesAreWholeWhileAnotherThreadRenames) {
  const std::string names[] = {std::string(23, 'a'), std::string(12, 'b')};
  const auto rename = [&](int i) {
    std::string name = names[i % 2];
    instance.send(effSetProgramName, 0, 0, name.data());
  };
  rename(0);
  std::atomic<bool> ended{false};
  std::thread renaming([&] {
    for (int i = 0; !ended; ++i) rename(i);
  });
  int torn = 0;
  for (int i = 0; i < 100 * kRounds; ++i) {
    const std::string name =
        i % 2 == 0 ? instance.text(effGetProgramName) : instance.text(effGetProgramNameIndexed);
    if (name != names[0] && name != names[1]) ++torn;
  }
  ended = true;
  renaming.join();
  EXPECT_EQ(torn, 0);
}

TEST_F(ChunkThreads, TwoInstancesOnTheirOwnThreads) {
  const auto life = [&](int current) {
    for (int i = 0; i < 20; ++i) {
      Instance own(module, threadHost);
      own.setChunk(imagebytes::chunk(bank, current));
      own.mainsChanged(true);
      EXPECT_TRUE(isFinite(own.render(noise(256))));
      EXPECT_EQ(own.chunk(), imagebytes::chunk(bank, current));
    }
  };
  std::thread other(life, 3);
  life(4);
  other.join();
}

}  // namespace
