// Chunks cut at every length and filled with garbage, in memory that ends where the data ends.
#include <gtest/gtest.h>

#include <random>

#include "tests/module/instance.h"
#include "tests/support/guardedmemory.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;

class DamagedChunk : public ModuleTest {
 protected:
  // The answer to the first `size` bytes.
  VstIntPtr setCut(Instance& instance, const Bytes& data, std::size_t size) {
    return instance.send(effSetChunk, static_cast<VstInt32>(size % 2), static_cast<VstIntPtr>(size),
                         memory.holding(data, size));
  }

  GuardedMemory memory{10545};
};

// Whole entries in front of the cut count; less than prefix and header is refused.
TEST_F(DamagedChunk, CutAtEveryLengthLoadsWhatIsThere) {
  Instance fresh(module);
  const Bytes factory = fresh.chunk();
  const auto bank = distinctBank();
  const Bytes whole = imagebytes::chunk(bank, 9);
  const float defaults[] = {0.0F, 0.5F, 0.0F, 1.0F, 0.0F};
  Instance instance(module);
  for (const bool other : {false, true}) {
    const Bytes data = imagebytes::chunk(bank, 9, other);
    // the other byte order goes the same way: a sample of it
    const std::size_t step = other ? 13 : 1;
    for (std::size_t size = 1; size <= data.size(); size += step) {
      instance.setChunk(factory);
      ASSERT_EQ(setCut(instance, data, size), size < 49 ? -1 : 0) << size;
      Bytes expected = factory;
      if (size >= 49) expected[8 + 17] = 9;  // the current preset
      for (std::size_t preset = 0, at = 49; preset < 32 && at + 168 <= size; ++preset) {
        std::copy_n(whole.begin() + static_cast<long>(at), 168,
                    expected.begin() + static_cast<long>(at));
        at += 168;
        bool there = true;
        for (std::size_t i = 0; i < 5; ++i, at += 32) {
          there = there && at + 32 <= size;
          const float value = there ? bank[preset].values[i] : defaults[i];
          std::memcpy(expected.data() + at + 24, &value, 4);
        }
      }
      ASSERT_EQ(instance.chunk(), expected) << size << " bytes";
    }
  }
}

TEST_F(DamagedChunk, OfTheOldLayoutCutAtEveryLengthReadsNothingBehindItsEnd) {
  Instance instance(module);
  for (const bool other : {false, true}) {
    const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 5, 9, other);
    for (std::size_t size = 1; size <= data.size(); ++size) {
      const VstIntPtr answer = setCut(instance, data, size);
      ASSERT_TRUE(answer == 0 || answer == -1);
      if (size < 8) {
        ASSERT_EQ(answer, -1);
      }
    }
    EXPECT_EQ(instance.chunk(), imagebytes::chunk(distinctBank(), 9)) << "the last one was whole";
  }
}

// In the other byte order a header of ours is turned where it lies; there is none of ours here.
TEST_F(DamagedChunk, OfAnUnknownTagIsLeftAloneWhateverItsSize) {
  Instance instance(module);
  const Bytes data = imagebytes::Writer(true)
                         .word(0x03000000)
                         .word(imagebytes::kTrelvan)
                         .word(0x01020304)
                         .zeros(37)
                         .bytes;
  for (const std::size_t size : {49U, 48U, 12U, 8U}) {
    unsigned char* handed = memory.holding(data, size);
    const Bytes before(handed, handed + size);
    EXPECT_EQ(instance.send(effSetChunk, 0, static_cast<VstIntPtr>(size), handed), -1);
    EXPECT_EQ(Bytes(handed, handed + size), before) << size;
  }
}

// A host that names no size has handed over a chunk's first words, whatever they look like.
TEST_F(DamagedChunk, OfNoNamedSizeIsNeverReadAsAFile) {
  Instance instance(module);
  for (const int kind : {34, 56, 12}) {
    const Bytes data = imagebytes::Writer().word(imagebytes::kTrelvan).byte(kind).zeros(3).bytes;
    unsigned char* handed = memory.holding(data, data.size());
    EXPECT_EQ(instance.send(effSetChunk, 0, 0, handed), -1) << kind;
  }
}

// All values that hosts get to see are between 0 and 1, and the chunk can be loaded again.
void expectValid(Instance& instance) {
  for (VstInt32 index = 0; index < 5; ++index) {
    EXPECT_GE(instance.getParameter(index), 0.0F);
    EXPECT_LE(instance.getParameter(index), 1.0F);
  }
  const Bytes chunk = instance.chunk();
  EXPECT_EQ(chunk.size(), 10545U);
  EXPECT_EQ(instance.setChunk(chunk), 0);
  EXPECT_EQ(instance.chunk(), chunk);
}

TEST_F(DamagedChunk, WithRandomBytesIsRefusedOrGivesAValidBank) {
  std::mt19937 random(3);
  const auto below = [&random](std::size_t end) { return random() % end; };
  Instance instance(module);
  testing::internal::CaptureStderr();  // every repaired value has its line
  int accepted = 0;
  for (int round = 0; round < 1000; ++round) {
    const bool other = below(2) == 1;
    Bytes data = below(3) == 0 ? imagebytes::oldChunk(imagebytes::randomBank(random),
                                                      static_cast<int>(below(33)),
                                                      static_cast<int>(below(6)), 3, other)
                               : imagebytes::chunk(imagebytes::randomBank(random), 3, other);
    for (std::size_t damage = below(30); damage > 0; --damage) {
      data[8 + below(std::min<std::size_t>(data.size() - 8, 3000))] =
          static_cast<unsigned char>(below(256));
    }
    accepted += setCut(instance, data, data.size() - below(2) * below(data.size())) == 0 ? 1 : 0;
    expectValid(instance);
  }
  testing::internal::GetCapturedStderr();
  EXPECT_GT(accepted, 300) << "most must get past the prefix, or the test tests nothing";
}

TEST_F(DamagedChunk, OfNothingButRandomBytesChangesNothing) {
  std::mt19937 random(4);
  Instance instance(module);
  const Bytes before = instance.chunk();
  for (int round = 0; round < 300; ++round) {
    Bytes data(1 + random() % 10545);
    for (unsigned char& byte : data) byte = static_cast<unsigned char>(random());
    EXPECT_EQ(setCut(instance, data, data.size()), -1);
  }
  EXPECT_EQ(instance.chunk(), before);
}

}  // namespace
