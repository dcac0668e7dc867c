// Old chunks through the module, of every kind that is still read.
#include <gtest/gtest.h>

#include "tests/module/instance.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;
using imagebytes::Writer;

class ModuleOldChunk : public ModuleTest {
 protected:
  // The bank of the old chunk's first `floats` values, with the first factory preset's after them.
  static imagebytes::Bank withDefaults(int floats) {
    const float defaults[] = {0.0F, 0.5F, 0.0F, 1.0F, 0.0F};
    imagebytes::Bank bank = distinctBank();
    for (imagebytes::Preset& preset : bank) {
      for (std::size_t i = 0; i < 5; ++i) {
        if (static_cast<int>(i) >= floats) preset.values[i] = defaults[i];
      }
    }
    return bank;
  }
  // The bank that the module has after taking in old data.
  Bytes after(const Bytes& old, VstIntPtr answer = 0) {
    Instance instance(module);
    EXPECT_EQ(instance.setChunk(old), answer);
    return instance.chunk();
  }
};

TEST_F(ModuleOldChunk, Of1440BytesLoadsInBothByteOrders) {
  for (const bool other : {false, true}) {
    EXPECT_EQ(after(imagebytes::oldChunk(distinctBank(), 32, 5, 17, other)),
              imagebytes::chunk(distinctBank(), 17));
  }
}

TEST_F(ModuleOldChunk, OfEveryStrideUpToFiveFloatsKeepsTheDefaultsBehindThem) {
  for (const bool other : {false, true}) {
    for (int floats = 0; floats <= 5; ++floats) {
      EXPECT_EQ(after(imagebytes::oldChunk(distinctBank(), 32, floats, 2, other)),
                imagebytes::chunk(withDefaults(floats), 2))
          << floats;
    }
  }
}

// 28 and 32 floats of a longer record are not ours; 1440 bytes hold the first records only.
TEST_F(ModuleOldChunk, OfALongerStrideLoadsWhatItsFirst1440BytesHold) {
  Instance fresh(module);
  const Bytes factory = fresh.chunk();
  for (const int floats : {6, 7, 19, 100, 352}) {
    const std::size_t stride = 24 + 4 * static_cast<std::size_t>(floats);
    const Bytes loaded = after(imagebytes::oldChunk(distinctBank(), 32, floats, 0));
    const Bytes whole = imagebytes::chunk(distinctBank(), 0);
    for (std::size_t record = 0; record < 32; ++record) {
      const bool there = 32 + record * stride + 44 <= 1440;
      const auto at = static_cast<long>(49 + record * 328);
      const Bytes& expected = there ? whole : factory;
      EXPECT_TRUE(std::equal(loaded.begin() + at, loaded.begin() + at + 328, expected.begin() + at))
          << floats << " floats, record " << record;
    }
  }
}

TEST_F(ModuleOldChunk, WithFewRecordsLeavesTheOtherPresets) {
  Instance fresh(module);
  Bytes expected = fresh.chunk();
  const Bytes whole = imagebytes::chunk(distinctBank(), 0);
  std::copy(whole.begin() + 49, whole.begin() + 49 + 3 * 328, expected.begin() + 49);
  expected[8 + 17] = 2;  // the current preset
  EXPECT_EQ(after(imagebytes::oldChunk(distinctBank(), 3, 5, 2)), expected);
}

TEST_F(ModuleOldChunk, WithStoredPreset40SelectsPresetZero) {
  EXPECT_EQ(after(imagebytes::oldChunk(distinctBank(), 32, 5, 40)),
            imagebytes::chunk(distinctBank(), 0));
}

TEST_F(ModuleOldChunk, WithCountZeroOnlySelects) {
  Instance fresh(module);
  Bytes expected = fresh.chunk();
  expected[8 + 17] = 14;
  EXPECT_EQ(after(imagebytes::oldChunk(distinctBank(), 0, 5, 14)), expected);
}

TEST_F(ModuleOldChunk, WithABadValueIsRefusedAndKeepsTheCurrentPreset) {
  imagebytes::Bank damaged = distinctBank();
  damaged[31].values[4] = 1.5F;
  imagebytes::Bank expected = distinctBank();
  expected[31].values[4] = 0.0F;
  EXPECT_EQ(after(imagebytes::oldChunk(damaged, 32, 5, 17), -1), imagebytes::chunk(expected, 0));
}

TEST_F(ModuleOldChunk, OfAnotherPlugInIsRefused) {
  Instance fresh(module);
  Bytes old = imagebytes::oldChunk(distinctBank(), 32, 5, 17);
  old[7] ^= 0x20;
  EXPECT_EQ(after(old, -1), fresh.chunk());
}

}  // namespace
