// The LV2 state is the chunk of the VST 2.4 record, in both directions.
#include <gtest/gtest.h>
#include <lv2/atom/atom.h>

#include <vector>

#include "tests/formats/directrecord.h"
#include "tests/formats/lv2player.h"
#include "tests/formats/samebits.h"

namespace {

using Bytes = Lv2Kept::Bytes;
const Lv2Values kValues{0.75F, 0.25F, 0.25F, 1.0F, 0.0F};
const Lv2Values kOthers{0.33F, 0.777F, 0.5F, 1.0F, 1.0F};
constexpr const char* kChunk = "urn:orv:trelvan:chunk";
constexpr std::size_t kFrames = 20000;

Lv2Kept saved(Lv2Player& plugin) {
  Lv2Kept kept;
  EXPECT_EQ(plugin.state().save(plugin.handle, Lv2Kept::store, &kept, 0, nullptr),
            LV2_STATE_SUCCESS);
  return kept;
}

LV2_State_Status restored(Lv2Player& plugin, const Lv2Kept& kept) {
  Lv2Kept copy = kept;
  return plugin.state().restore(plugin.handle, Lv2Kept::retrieve, &copy, 0, nullptr);
}

Lv2Kept keptAs(Lv2Player& plugin, const Bytes& bytes, const char* type = LV2_ATOM__Chunk) {
  return {bytes, plugin.numbers.of(kChunk), plugin.numbers.of(type), LV2_STATE_IS_POD, 1};
}

Bytes namedChunk(const Lv2Values& values, char* name) {
  DirectRecord record(values);
  record.dispatch(effSetProgramName, 0, name);
  return record.chunk();
}

}  // namespace

TEST(Lv2State, IsTheRecordsChunkByteForByte) {
  Lv2Player plugin(kValues);
  plugin.activate();
  plugin.play(makeSignal<float>(Signal::kNoise, 64));
  const Lv2Kept kept = saved(plugin);
  EXPECT_EQ(kept.count, 1);
  EXPECT_EQ(kept.bytes, DirectRecord(kValues).chunk());
  EXPECT_EQ(kept.key, plugin.numbers.of(kChunk));
  EXPECT_EQ(kept.type, plugin.numbers.of(LV2_ATOM__Chunk));
  EXPECT_EQ(kept.flags, static_cast<std::uint32_t>(LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE));
}

TEST(Lv2State, TakesTheRecordsChunk) {
  char name[] = "from elsewhere";
  const Bytes chunk = namedChunk(kOthers, name);
  Lv2Player plugin(kOthers);
  ASSERT_EQ(restored(plugin, keptAs(plugin, chunk)), LV2_STATE_SUCCESS);
  EXPECT_EQ(saved(plugin).bytes, chunk);
  plugin.activate();
  plugin.play(makeSignal<float>(Signal::kNoise, 64));
  EXPECT_EQ(saved(plugin).bytes, chunk);
}

TEST(Lv2State, GoesBackIntoTheRecord) {
  char name[] = "from here";
  Lv2Player plugin(kOthers);
  ASSERT_EQ(restored(plugin, keptAs(plugin, namedChunk(kOthers, name))), LV2_STATE_SUCCESS);
  Bytes bytes = saved(plugin).bytes;
  DirectRecord record(kValues);
  record.dispatch(effSetChunk, static_cast<VstIntPtr>(bytes.size()), bytes.data());
  char read[kVstMaxProgNameLen + 1] = {};
  record.dispatch(effGetProgramName, 0, read);
  EXPECT_STREQ(read, "from here");
  EXPECT_EQ(record.chunk(), saved(plugin).bytes);
}

// Hosts do it before activate and after it. The port's values are the state's, as they restore them
// too; without a new start the sound would glide there, and stay beside it for good.
TEST(Lv2State, ThatComesWhileSwitchedOnSoundsAsFromTheStart) {
  const auto in = makeSignal<float>(Signal::kNoise, kFrames);
  Lv2Player plugin(kValues);
  plugin.activate();
  plugin.play(in);
  plugin.controls = kOthers;
  ASSERT_EQ(restored(plugin, keptAs(plugin, DirectRecord(kOthers).chunk())), LV2_STATE_SUCCESS);
  EXPECT_TRUE(sameBits(plugin.play(in), DirectRecord(kOthers).play(in)));
}

TEST(Lv2State, GivesWayToTheHostsValues) {
  const auto in = makeSignal<float>(Signal::kNoise, kFrames);
  Lv2Player plugin(kValues);
  plugin.activate();
  plugin.play(in);
  ASSERT_EQ(restored(plugin, keptAs(plugin, DirectRecord(kOthers).chunk())), LV2_STATE_SUCCESS);
  EXPECT_TRUE(sameBits(plugin.play(in), DirectRecord(kValues).play(in)));
  EXPECT_EQ(saved(plugin).bytes, DirectRecord(kValues).chunk());
}

TEST(Lv2State, OfNobodyOrAnotherTypeIsRefused) {
  Lv2Player plugin(kValues);
  const Bytes before = saved(plugin).bytes;
  const Bytes chunk = DirectRecord(kOthers).chunk();
  Lv2Kept unknown = keptAs(plugin, chunk);
  unknown.key = plugin.numbers.of("urn:something:else");
  EXPECT_EQ(restored(plugin, unknown), LV2_STATE_ERR_NO_PROPERTY);
  EXPECT_EQ(restored(plugin, keptAs(plugin, chunk, LV2_ATOM__String)), LV2_STATE_ERR_BAD_TYPE);
  EXPECT_EQ(saved(plugin).bytes, before);
}

TEST(Lv2State, ThatIsNoChunkIsRefused) {
  Lv2Player plugin(kValues);
  const Bytes before = saved(plugin).bytes;
  for (const Bytes& bytes : {Bytes{}, Bytes{1}, Bytes(10545, 0xff), Bytes(20000)})
    EXPECT_EQ(restored(plugin, keptAs(plugin, bytes)), LV2_STATE_ERR_UNKNOWN) << bytes.size();
  EXPECT_EQ(saved(plugin).bytes, before);
}

TEST(Lv2State, IsNoneWithoutNumbersForUris) {
  const LV2_Descriptor& descriptor = *lv2_descriptor(kLv2Stereo);
  const LV2_Handle handle = descriptor.instantiate(&descriptor, 44100.0, "", nullptr);
  const auto& state =
      *static_cast<const LV2_State_Interface*>(descriptor.extension_data(LV2_STATE__interface));
  Lv2Kept kept;
  EXPECT_EQ(state.save(handle, Lv2Kept::store, &kept, 0, nullptr), LV2_STATE_ERR_NO_FEATURE);
  EXPECT_EQ(state.restore(handle, Lv2Kept::retrieve, &kept, 0, nullptr), LV2_STATE_ERR_NO_FEATURE);
  EXPECT_EQ(kept.count, 0);
  descriptor.cleanup(handle);
}
