// The entry point's work: which hosts get an effect, and what a lack of memory does.
#include "plugin/createeffectinstance.h"

#include <gtest/gtest.h>

#include <memory>

#include "plugin/audioeffect.h"
#include "tests/support/failingmemory.h"
#include "tests/support/recordinghost.h"
#include "tests/support/silenthost.h"

namespace {

void close(AEffect* effect) {
  effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
}

TEST(CreateEffectInstance, AsksTheVersionWithoutAnEffectAndWithoutArguments) {
  RecordingHost host;
  std::unique_ptr<AudioEffect> effect(createEffectInstance(RecordingHost::callback));
  ASSERT_NE(effect, nullptr);
  const RecordingHost::Call& first = host.calls.at(0);
  EXPECT_EQ(first.opcode, audioMasterVersion);
  EXPECT_EQ(first.effect, nullptr);
  EXPECT_EQ(first.index, 0);
  EXPECT_EQ(first.value, 0);
  EXPECT_EQ(first.ptr, nullptr);
  EXPECT_EQ(first.opt, 0.0F);
}

TEST(CreateEffectInstance, IsNullForAHostWhoseVersionIsZero) {
  RecordingHost host;
  host.answers[audioMasterVersion] = 0;
  EXPECT_EQ(createEffectInstance(RecordingHost::callback), nullptr);
  EXPECT_EQ(createEffectRecord(RecordingHost::callback), nullptr);
  EXPECT_EQ(host.calls.size(), 2U) << "nothing else is asked";
}

TEST(CreateEffectInstance, IsNullWithoutAHost) {
  EXPECT_EQ(createEffectRecord(nullptr), nullptr);
}

TEST(CreateEffectInstance, ServesEveryVersionButZero) {
  RecordingHost host;
  for (const VstIntPtr version : {1, 2, 2300, 2400, 2401, -1}) {
    host.answers[audioMasterVersion] = version;
    AEffect* effect = createEffectRecord(RecordingHost::callback);
    ASSERT_NE(effect, nullptr) << version;
    close(effect);
  }
}

// Whichever allocation fails, the host gets a null effect, or one that works where the effect can
// do without; nothing is left behind either way.
TEST(CreateEffectInstance, IsNullWhenMemoryRunsOut) {
  int refused = 0;
  for (long succeeding = 0;; ++succeeding) {
    AEffect* effect = nullptr;
    bool oneFailed = false;
    {
      const FailingMemory memory(succeeding, FailingMemory::Fails::allFromThere);
      effect = createEffectRecord(silentHost);
      oneFailed = memory.hasFailed();
    }
    if (effect != nullptr) close(effect);
    if (!oneFailed) {
      EXPECT_NE(effect, nullptr);
      break;
    }
    if (effect == nullptr) ++refused;
  }
  EXPECT_GT(refused, 1) << "the effect itself and its bank, at the least";
}

}  // namespace
