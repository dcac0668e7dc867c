// An LV2 instance where memory runs out: made whole or not at all, and a state taken or not.
#include <gtest/gtest.h>
#include <lv2/atom/atom.h>

#include "tests/formats/directrecord.h"
#include "tests/formats/lv2player.h"
#include "tests/support/eachfailure.h"

namespace {

constexpr const char* kChunk = "urn:orv:trelvan:chunk";

LV2_State_Status save(LV2_Handle handle, Lv2Kept& kept) {
  const LV2_Descriptor& descriptor = *lv2_descriptor(kLv2Stereo);
  const auto& state =
      *static_cast<const LV2_State_Interface*>(descriptor.extension_data(LV2_STATE__interface));
  return state.save(handle, Lv2Kept::store, &kept, 0, nullptr);
}

class Lv2Memory : public testing::TestWithParam<FailingMemory::Fails> {};

}  // namespace

TEST_P(Lv2Memory, AnInstanceIsMadeWholeOrNotAtAll) {
  const LV2_Descriptor& descriptor = *lv2_descriptor(kLv2Stereo);
  Lv2Numbers numbers;
  numbers.of(kChunk);
  numbers.of(LV2_ATOM__Chunk);
  LV2_Handle handle = nullptr;
  int none = 0;
  const auto end = [&] {
    if (handle == nullptr) {
      ++none;
      return;
    }
    Lv2Kept kept;
    EXPECT_EQ(save(handle, kept), LV2_STATE_SUCCESS);
    descriptor.cleanup(handle);
    handle = nullptr;
  };
  const auto make = [&] {
    handle = descriptor.instantiate(&descriptor, 44100.0, "", numbers.features());
  };
  const long allocations = failEach({.call = make,
                                     .afterFailure = end,
                                     .callOnceMore =
                                         [&] {
                                           make();
                                           EXPECT_NE(handle, nullptr);
                                           end();
                                         }},
                                    GetParam());
  end();  // that of the last call
  EXPECT_GT(allocations, 3);
  EXPECT_GT(none, 3);
}

TEST_P(Lv2Memory, AStateIsTakenOrThereIsTheOneBefore) {
  Lv2Player plugin({0.75F, 0.25F, 0.25F, 1.0F, 0.0F});
  const Lv2Kept::Bytes chunk = DirectRecord({0.1F, 0.2F, 0.3F, 0.0F, 1.0F}).chunk();
  Lv2Kept before;
  save(plugin.handle, before);
  Lv2Kept state{chunk, plugin.numbers.of(kChunk), plugin.numbers.of(LV2_ATOM__Chunk), 0, 1};
  LV2_State_Status status = LV2_STATE_SUCCESS;
  const auto restore = [&](Lv2Kept& kept) {
    status = plugin.state().restore(plugin.handle, Lv2Kept::retrieve, &kept, 0, nullptr);
  };
  const long allocations =
      failEach({.call = [&] { restore(state); },
                .afterFailure =
                    [&] {
                      Lv2Kept kept;
                      EXPECT_EQ(save(plugin.handle, kept), LV2_STATE_SUCCESS);
                      EXPECT_EQ(kept.bytes, status == LV2_STATE_SUCCESS ? chunk : before.bytes);
                    },
                .callOnceMore =
                    [&] {
                      restore(state);
                      EXPECT_EQ(status, LV2_STATE_SUCCESS);
                      restore(before);
                    }},
               GetParam());
  EXPECT_GT(allocations, 0);
}

INSTANTIATE_TEST_SUITE_P(Ways, Lv2Memory, testing::ValuesIn(kBothWaysToFail));
