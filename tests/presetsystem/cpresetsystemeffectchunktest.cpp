// The host's chunk, written and read through the effect.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "effect/trelvan.h"
#include "presetsystem/bar/cpresetsystemeditor.h"
#include "tests/support/recordingeditor.h"
#include "tests/support/recordinghost.h"
#include "tests/support/records.h"

namespace {

using imagebytes::Bytes;
using imagebytes::distinctBank;
using imagebytes::kTrelvan;
using imagebytes::Writer;
using testing::ElementsAre;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

class Chunk : public testing::Test {
 protected:
  Bytes chunk(bool isPreset = false) {
    void* data = nullptr;
    const VstInt32 size = effect.getChunk(&data, isPreset);
    const auto* bytes = static_cast<unsigned char*>(data);
    return {bytes, bytes + size};
  }
  VstInt32 set(Bytes data, bool isPreset = false) {
    return effect.setChunk(data.data(), static_cast<VstInt32>(data.size()), isPreset);
  }
  // Effect and bank are what they were in the beginning, but for the presets in front of `first`.
  testing::AssertionResult unchanged(std::size_t first = 0) {
    for (std::size_t i = first; i < 32; ++i) {
      if (!isSame(effect.bank()[i], factory.bank()[i])) {
        return sameRecord(effect.bank()[i], factory.bank()[i]) << " in preset " << i;
      }
    }
    if (effect.getPresetNo() != 0)
      return testing::AssertionFailure() << "preset " << effect.getPresetNo();
    return testing::AssertionSuccess();
  }

  RecordingHost host;
  Trelvan factory{RecordingHost::callback};  // untouched, to compare with
  Trelvan effect{RecordingHost::callback};
};

TEST_F(Chunk, Has10545BytesWithTagIdAndABankHeaderOf192Entries) {
  const Bytes data = chunk();
  ASSERT_EQ(data.size(), 10545U);
  const Bytes start =
      Writer().word(0x02000000).word(kTrelvan).header(imagebytes::kBankKind, 192, 0, 10496).bytes;
  EXPECT_EQ(Bytes(data.begin(), data.begin() + 49), start);
}

TEST_F(Chunk, HoldsTheWholeBankAndTheCurrentPreset) {
  effect.bank() = recordsOf(distinctBank());
  effect.setPresetNo(17);
  EXPECT_EQ(chunk(), imagebytes::chunk(distinctBank(), 17));
}

TEST_F(Chunk, IsTheSameForAProgramAsForTheBank) {
  EXPECT_EQ(chunk(true), chunk(false));
  EXPECT_EQ(set(imagebytes::chunk(distinctBank(), 17), true), 0);
  EXPECT_EQ(chunk(true), imagebytes::chunk(distinctBank(), 17));
}

TEST_F(Chunk, StaysWithTheEffectAndIsOverwrittenByTheNext) {
  void* first = nullptr;
  void* second = nullptr;
  effect.getChunk(&first, false);
  effect.setParameter(0, 0.75F);
  effect.getChunk(&second, false);
  EXPECT_EQ(first, second);
}

TEST_F(Chunk, RestoresBankCurrentPresetAndEffectInBothByteOrders) {
  for (const bool other : {false, true}) {
    Trelvan restored(RecordingHost::callback);
    Bytes data = imagebytes::chunk(distinctBank(), 17, other);
    EXPECT_EQ(restored.setChunk(data.data(), static_cast<VstInt32>(data.size()), false), 0);
    EXPECT_TRUE(sameBank(restored.bank(), recordsOf(distinctBank())));
    EXPECT_EQ(restored.getPresetNo(), 17);
    for (VstInt32 i = 0; i < 5; ++i)
      EXPECT_EQ(restored.getParameter(i), restored.preset(17).parameter(i));
  }
}

TEST_F(Chunk, OfTheOtherByteOrderHasItsHeaderTurnedInTheHostsData) {
  Bytes data = imagebytes::chunk(distinctBank(), 17, true);
  const Bytes native = imagebytes::chunk(distinctBank(), 17);
  Bytes expected = data;
  // all but the unique ID
  std::copy(native.begin() + 8 + 4, native.begin() + 49, expected.begin() + 8 + 4);
  effect.setChunk(data.data(), static_cast<VstInt32>(data.size()), false);
  EXPECT_EQ(data, expected);
}

TEST_F(Chunk, OfThisByteOrderIsOnlyRead) {
  Bytes data = imagebytes::chunk(distinctBank(), 17);
  effect.setChunk(data.data(), static_cast<VstInt32>(data.size()), false);
  EXPECT_EQ(data, imagebytes::chunk(distinctBank(), 17));
}

TEST_F(Chunk, TellsTheHostOnce) {
  host.calls.clear();
  set(imagebytes::chunk(distinctBank(), 17));
  EXPECT_THAT(host.opcodes(),
              ElementsAre(audioMasterUpdateDisplay, audioMasterBeginEdit, audioMasterEndEdit));
}

TEST_F(Chunk, WithAForeignIdIsRefused) {
  for (const std::uint32_t id : {0U, kTrelvan + 1, 0x564D4172U}) {
    Bytes data = imagebytes::chunk(distinctBank(), 17);
    std::memcpy(data.data() + 4, &id, 4);
    EXPECT_EQ(set(data), -1);
  }
  EXPECT_TRUE(unchanged());
}

// The bank's own ID, behind the chunk's, is not looked at.
TEST_F(Chunk, IsNotCheckedForIdKindVersionAndCountInItsBankHeader) {
  Bytes data = imagebytes::chunk(distinctBank(), 17);
  std::memset(data.data() + 8, 0x77, 4 + 1 + 4 + 4);
  EXPECT_EQ(set(data), 0);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
}

TEST_F(Chunk, WithAnotherTagIsRefused) {
  for (const std::uint32_t tag : {0U, 0x02000001U, 0x03000000U, 0x00000002U, 0xFFFFFFFFU}) {
    for (const bool other : {false, true}) {
      Bytes data = imagebytes::chunk(distinctBank(), 17, other);
      const Bytes wrong = Writer(other).word(tag).bytes;
      std::copy(wrong.begin(), wrong.end(), data.begin());
      EXPECT_EQ(set(data), -1) << tag;
    }
  }
  EXPECT_TRUE(unchanged());
}

TEST_F(Chunk, ThatIsNotThereIsRefused) {
  EXPECT_EQ(effect.setChunk(nullptr, 10545, false), -1);
  EXPECT_EQ(effect.setChunk(nullptr, 0, true), -1);
  EXPECT_TRUE(unchanged());
}

TEST_F(Chunk, ThatIsCompleteLoadsWhateverSizeIsNamed) {
  Bytes data = imagebytes::chunk(distinctBank(), 17);
  for (const VstInt32 size : {10545, 0, -1, kLeast}) {
    effect.initPresets();
    EXPECT_EQ(effect.setChunk(data.data(), size, false), 0) << size;
    EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank()))) << size;
  }
  data.resize(20000);  // with something behind it
  EXPECT_EQ(set(data), 0);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
}

// A host's number is the bound, the image's own data size is not needed.
TEST_F(Chunk, LoadsWhateverDataSizeItsHeaderNames) {
  for (const std::int32_t dataSize : {0, -1, 1, 10495, 10497, 1000000000, kLeast}) {
    effect.initPresets();
    Bytes data = imagebytes::chunk(distinctBank(), 17);
    std::memcpy(data.data() + 8 + 21, &dataSize, 4);
    EXPECT_EQ(set(data), 0);
    EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank()))) << dataSize;
  }
}

TEST_F(Chunk, WithAnEntryCountThatIsTooLargeEndsWithItsData) {
  for (const bool other : {false, true}) {
    Bytes data = imagebytes::chunk(distinctBank(), 17, other);
    const Bytes count = Writer(other).number(2000000000).bytes;
    std::copy(count.begin(), count.end(), data.begin() + 8 + 13);
    EXPECT_EQ(set(data), 0);
    EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
  }
}

TEST_F(Chunk, WithANegativeEntryCountChangesNothingAndAnswersZero) {
  for (const std::int32_t count : {-1, kLeast}) {
    Bytes data = imagebytes::chunk(distinctBank(), 17);
    std::memcpy(data.data() + 8 + 13, &count, 4);
    EXPECT_EQ(set(data), 0);
  }
  EXPECT_TRUE(unchanged());
}

TEST_F(Chunk, WithANaNChangesNothingAndAnswersZero) {
  for (const bool other : {false, true}) {
    imagebytes::Bank damaged = distinctBank();
    damaged[31].values[4] = kNaN;
    EXPECT_EQ(set(imagebytes::chunk(damaged, 17, other)), 0);
    EXPECT_TRUE(unchanged());
  }
}

TEST_F(Chunk, WithValuesOutsideTheRangeIsRepairedAndSaysSo) {
  for (const bool other : {false, true}) {
    imagebytes::Bank damaged = distinctBank();
    damaged[17].values[0] = 1.5F;
    damaged[17].values[1] = -1.5F;
    testing::internal::CaptureStderr();
    EXPECT_EQ(set(imagebytes::chunk(damaged, 17, other)), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Invalid parameter 0 value 1.500000 on load of preset 17 preset number 17\n"
              "Invalid parameter 1 value -1.500000 on load of preset 17 preset number 17\n");
    EXPECT_EQ(effect.getParameter(0), 1.0F);
    EXPECT_EQ(effect.getParameter(1), 0.0F);
  }
}

TEST_F(Chunk, SelectsPresetZeroForANumberThatTheBankHasNot) {
  for (const std::int32_t number : {32, 40, -1, kLeast}) {
    effect.setPresetNo(5);
    EXPECT_EQ(set(imagebytes::chunk(distinctBank(), number)), 0);
    EXPECT_EQ(effect.getPresetNo(), 0) << number;
  }
}

TEST_F(Chunk, MayBeHandedBackByItsOwnPointer) {
  effect.bank() = recordsOf(distinctBank());
  effect.setPresetNo(17);
  void* data = nullptr;
  const VstInt32 size = effect.getChunk(&data, false);
  EXPECT_EQ(effect.setChunk(data, size, false), 0);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
  effect.initPresets();
  effect.setPresetNo(3);
  EXPECT_EQ(effect.setChunk(data, size, false), 0);
  EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
  EXPECT_EQ(effect.getPresetNo(), 17);
}

TEST_F(Chunk, MayBeAskedForInsideTheCallbacksOfASetting) {
  Bytes inside;
  host.onCall = [&](const RecordingHost::Call&) { inside = chunk(); };
  void* own = nullptr;
  effect.getChunk(&own, false);
  const Bytes wanted = imagebytes::chunk(distinctBank(), 17);
  EXPECT_EQ(set(wanted), 0);
  EXPECT_EQ(inside, wanted);
}

TEST_F(Chunk, SavesARepairedValueAndSaysSo) {
  effect.preset(3).emphasis = 1.25F;
  testing::internal::CaptureStderr();
  const Bytes data = chunk();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Invalid parameter 2 value 1.250000 on save of preset 3 mix 3\n");
  float written = 0.0F;
  std::memcpy(&written, data.data() + 49 + 3 * 328 + 168 + 2 * 32 + 24, 4);
  EXPECT_EQ(written, 1.0F);
}

class OldChunkOfTheHost : public Chunk {};

TEST_F(OldChunkOfTheHost, LoadsInBothByteOrders) {
  for (const bool other : {false, true}) {
    effect.initPresets();
    const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 5, 17, other);
    ASSERT_EQ(data.size(), 1440U);
    EXPECT_EQ(set(data), 0);
    EXPECT_TRUE(sameBank(effect.bank(), recordsOf(distinctBank())));
    EXPECT_EQ(effect.getPresetNo(), 17);
    for (VstInt32 i = 0; i < 5; ++i)
      EXPECT_EQ(effect.getParameter(i), effect.preset(17).parameter(i)) << "applied";
  }
}

TEST_F(OldChunkOfTheHost, IsOnlyRead) {
  Bytes data = imagebytes::oldChunk(distinctBank(), 32, 5, 17, true);
  effect.setChunk(data.data(), static_cast<VstInt32>(data.size()), false);
  EXPECT_EQ(data, imagebytes::oldChunk(distinctBank(), 32, 5, 17, true));
}

TEST_F(OldChunkOfTheHost, WithThreeFloatsKeepsTheDefaultsOfTheOtherTwo) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 32, 3, 0);
  ASSERT_EQ(data.size(), 32U + 32U * 36U);
  EXPECT_EQ(set(data), 0);
  for (std::size_t i = 0; i < 32; ++i) {
    imagebytes::Preset expected = distinctBank()[i];
    expected.values[3] = 1.0F;  // as in the first factory preset
    expected.values[4] = 0.0F;
    EXPECT_TRUE(sameRecord(effect.bank()[i], recordOf(expected))) << i;
  }
}

TEST_F(OldChunkOfTheHost, SelectsPresetZeroForANumberThatTheBankHasNot) {
  for (const std::int32_t number : {40, 32, -1}) {
    effect.setPresetNo(5);
    EXPECT_EQ(set(imagebytes::oldChunk(distinctBank(), 32, 5, number)), 0);
    EXPECT_EQ(effect.getPresetNo(), 0) << number;
  }
}

TEST_F(OldChunkOfTheHost, WithoutRecordsOnlySelects) {
  const Bytes data = imagebytes::oldChunk(distinctBank(), 0, 5, 14);
  EXPECT_EQ(set(data), 0);
  EXPECT_EQ(effect.getPresetNo(), 14);
  effect.setPresetNo(0);
  EXPECT_TRUE(unchanged());
}

TEST_F(OldChunkOfTheHost, WithABadValueIsRefusedPartWayAndSelectsNothing) {
  for (const float value : {1.25F, -0.5F}) {
    effect.initPresets();
    imagebytes::Bank damaged = distinctBank();
    damaged[5].values[2] = value;
    EXPECT_EQ(set(imagebytes::oldChunk(damaged, 32, 5, 17)), -1);
    for (std::size_t i = 0; i < 5; ++i)
      EXPECT_TRUE(sameRecord(effect.bank()[i], recordOf(distinctBank()[i])));
    damaged[5].values[2] = 0.0F;  // the default preset's values from there on
    damaged[5].values[3] = 1.0F;
    damaged[5].values[4] = 0.0F;
    EXPECT_TRUE(sameRecord(effect.bank()[5], recordOf(damaged[5])));
    EXPECT_TRUE(unchanged(6));
  }
}

// Nothing of the one before is left to be read.
TEST_F(OldChunkOfTheHost, CutInItsHeaderTakesNothingFromTheOneBefore) {
  const Bytes whole = imagebytes::oldChunk(distinctBank(), 32, 5, 17);
  for (const std::size_t size : {8U, 12U}) {  // bytes: with tag and ID, and with the count
    ASSERT_EQ(set(whole), 0);
    ASSERT_EQ(effect.getPresetNo(), 17);
    effect.preset(3).rename("mine");
    EXPECT_EQ(set(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))), 0);
    EXPECT_EQ(effect.getPresetNo(), 0) << size;
    EXPECT_STREQ(effect.preset(3).name, "mine") << size;
  }
}

TEST_F(OldChunkOfTheHost, WithoutASizeHasNothingToRead) {
  Bytes data = imagebytes::oldChunk(distinctBank(), 32, 5, 17);
  for (const VstInt32 size : {0, -1, kLeast}) effect.setChunk(data.data(), size, false);
  EXPECT_TRUE(unchanged());
}

TEST_F(OldChunkOfTheHost, SaysNothingOnTheErrorStream) {
  imagebytes::Bank damaged = distinctBank();
  damaged[5].values[2] = 2.0F;
  testing::internal::CaptureStderr();
  set(imagebytes::oldChunk(damaged, 32, 5, 17));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// Asks for the chunk and hands one in while it ends, as hosts do from a gesture's end.
class LastCalls final : public CPresetSystemEditor {
 public:
  struct Returned {
    VstInt32 size;
    VstInt32 taken;
  };
  LastCalls(Trelvan* owner, Returned& told)
      : CPresetSystemEditor(owner), effect(owner), returned(told) {}
  ~LastCalls() override {
    void* data = nullptr;
    returned.size = effect->getChunk(&data, false);
    Bytes chunk = imagebytes::chunk(distinctBank(), 17);
    returned.taken = effect->setChunk(chunk.data(), static_cast<VstInt32>(chunk.size()), false);
  }
  LastCalls(const LastCalls&) = delete;
  LastCalls& operator=(const LastCalls&) = delete;

 private:
  ERect windowSize() override { return {}; }

  Trelvan* effect;
  Returned& returned;
};

TEST(ChunkAtTheEnd, IsNobodysWhileTheEditorEnds) {
  LastCalls::Returned returned{-5, -5};
  {
    RecordingHost host;
    Trelvan effect(RecordingHost::callback);
    effect.setEditor(new LastCalls(&effect, returned));
  }
  EXPECT_EQ(returned.size, 0);
  EXPECT_EQ(returned.taken, -1);
}

}  // namespace
