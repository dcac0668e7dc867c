// Calls of hosts in any order and number: before open, inside callbacks, twice,
// unknown, without buffers.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/module/instance.h"

namespace {

using imagebytes::distinctBank;

constexpr VstInt32 kLeast = -2147483647 - 1;

class HostCalls : public ModuleTest {
 protected:
  const imagebytes::Bytes state = imagebytes::chunk(distinctBank(), 9);
};

// Every opcode of the interface and around it but the one that ends the effect, with room for
// whatever it may write.
void callEverything(Instance& instance) {
  std::vector<char> room(4096);
  VstSpeakerArrangement in{};
  VstSpeakerArrangement out{};
  in.numChannels = out.numChannels = 2;
  for (VstInt32 opcode = -3; opcode < 120; ++opcode) {
    if (opcode == effClose || opcode == effEditOpen || opcode == effEditGetRect) continue;
    if (opcode == effSetSpeakerArrangement) {
      instance.send(opcode, 0, reinterpret_cast<VstIntPtr>(&in), &out);
    } else if (opcode == effGetSpeakerArrangement) {
      VstSpeakerArrangement* pointers[2] = {};
      instance.send(opcode, 0, reinterpret_cast<VstIntPtr>(&pointers[0]), &pointers[1]);
    } else if (opcode == effGetChunk) {
      void* data = nullptr;
      instance.send(opcode, 1, 0, &data);
    } else if (opcode == effProcessEvents) {
      VstEvents none{};
      instance.send(opcode, 0, 0, &none);
    } else {
      std::fill(room.begin(), room.end(), 0);
      instance.send(opcode, 1, 1, room.data(), 48000.0F);
    }
  }
}

TEST_F(HostCalls, AreHarmlessBeforeOpen) {
  Instance instance(module);
  callEverything(instance);
  instance.send(effOpen);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, AreHarmlessWhileSwitchedOn) {
  Instance instance(module);
  instance.send(effOpen);
  instance.mainsChanged(true);
  instance.render(noise(1000));
  callEverything(instance);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, AreHarmlessWithoutAnyBuffer) {
  Instance instance(module);
  for (VstInt32 opcode = -3; opcode < 120; ++opcode) {
    if (opcode != effClose) instance.send(opcode);
  }
  instance.setChunk(state);
  EXPECT_EQ(instance.chunk(), state);
}

TEST_F(HostCalls, ThatAreUnknownAnswerZero) {
  Instance instance(module);
  char text[64] = "untouched";
  for (const VstInt32 opcode :
       {kLeast, -100289, -1, 9,  16, 17, 18, 20, 21, 28, 30,  31,     32,     36,     37,        46,
        53,     54,      55, 57, 67, 68, 75, 76, 80, 81, 255, 100289, 100303, 100304, 2147483647}) {
    EXPECT_EQ(instance.send(opcode, 0, 0, text), 0) << opcode;
  }
  EXPECT_STREQ(text, "untouched");
}

TEST_F(HostCalls, OpenThreeTimes) {
  Instance instance(module);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(instance.send(effOpen), 0);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, SwitchOnTwiceWithoutOffInBetween) {
  Instance instance(module);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  instance.render(noise(1000));
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, SwitchOffWithoutOn) {
  Instance instance(module);
  instance.mainsChanged(false);
  instance.mainsChanged(false);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, ProcessWithoutEverSwitchingOn) {
  Instance instance(module);
  EXPECT_TRUE(isFinite(instance.render(noise(4096))));
}

TEST_F(HostCalls, NeedNoStartOfProcessing) {
  Instance instance(module);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  EXPECT_EQ(instance.send(effStartProcess), 0);
  const Audio audio = instance.render(noise(4096));
  EXPECT_EQ(instance.send(effStopProcess), 0);
  EXPECT_TRUE(audio == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, NameSampleRateAndBlockSizeWhileSwitchedOn) {
  Instance instance(module);
  instance.setChunk(state);
  instance.setSampleRate(44100.0F);
  instance.mainsChanged(true);
  instance.setSampleRate(48000.0F);
  instance.setBlockSize(8192);
  EXPECT_TRUE(isFinite(instance.render(noise(1000))));
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, ProcessNoFramesAtAll) {
  Instance instance(module);
  instance.setSampleRate(48000.0F);
  instance.setChunk(state);
  instance.mainsChanged(true);
  float untouched = 7.0F;
  float* buffers[] = {&untouched, &untouched};
  instance.effect->processReplacing(instance.effect, buffers, buffers, 0);
  EXPECT_EQ(untouched, 7.0F);
  EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
}

TEST_F(HostCalls, ProcessMoreFramesThanAnnounced) {
  Instance instance(module);
  instance.setSampleRate(48000.0F);
  instance.setBlockSize(16);
  instance.setChunk(state);
  instance.mainsChanged(true);
  EXPECT_TRUE(instance.render(noise(40000), Buffers::separate, {40000}) ==
              plainRendering(state, noise(40000)));
}

TEST_F(HostCalls, AnswerUselessNumbersWithoutHarm) {
  for (const VstIntPtr answer : {0, -1, 2147483647}) {
    host.answers[audioMasterGetSampleRate] = answer;
    host.answers[audioMasterGetBlockSize] = answer;
    host.answers[audioMasterGetOutputLatency] = answer;
    Instance instance(module);
    instance.setSampleRate(48000.0F);
    instance.setChunk(state);
    instance.mainsChanged(true);
    EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
  }
}

// The one question that the audio thread asks.
TEST_F(HostCalls, AreAskedForPinsOnlyWhileProcessing) {
  Instance instance(module);
  instance.mainsChanged(true);
  host.calls.clear();
  instance.render(noise(4096));
  EXPECT_FALSE(host.calls.empty());
  for (const RecordingHost::Call& call : host.calls) {
    EXPECT_EQ(call.opcode, audioMasterPinConnected);
    EXPECT_EQ(call.effect, instance.effect);
    EXPECT_EQ(call.index, 1) << "the right channel";
  }
}

class CallsFromCallbacks : public HostCalls {
 protected:
  static VstIntPtr send(AEffect* effect, VstInt32 opcode, VstIntPtr value = 0, void* ptr = nullptr,
                        float opt = 0.0F) {
    return effect->dispatcher(effect, opcode, 0, value, ptr, opt);
  }
  // Makes an effect, saves, restores, plays and ends it; then one must still play as if
  // nothing had been.
  void liveThrough() {
    Instance instance(module);
    instance.send(effOpen);
    instance.setSampleRate(48000.0F);
    instance.mainsChanged(true);
    EXPECT_TRUE(isFinite(instance.render(noise(2000))));
    instance.setChunk(state);
    EXPECT_EQ(instance.chunk().size(), 10545U);
    EXPECT_TRUE(isFinite(instance.render(noise(2000))));
    instance.mainsChanged(false);
    EXPECT_GT(inside, 10);
    host.onCall = nullptr;
    instance.setSampleRate(48000.0F);
    instance.setChunk(state);
    instance.mainsChanged(true);
    EXPECT_TRUE(instance.render(noise(4096)) == plainRendering(state, noise(4096)));
    EXPECT_EQ(instance.chunk(), state);
  }

  int inside = 0;  // number of callbacks that called back
};

TEST_F(CallsFromCallbacks, MaySetSampleRateAndBlockSize) {
  host.onCall = [&](const RecordingHost::Call& call) {
    send(call.effect, effSetSampleRate, 0, nullptr, 44100.0F);
    send(call.effect, effSetBlockSize, 1024);
    ++inside;
  };
  liveThrough();
}

TEST_F(CallsFromCallbacks, MayGetAndSetParameters) {
  host.onCall = [&](const RecordingHost::Call& call) {
    for (VstInt32 index = -1; index < 8; ++index) {
      const float value = 0.125F * static_cast<float>(inside % 9);
      call.effect->setParameter(call.effect, index, value);
      const float read = call.effect->getParameter(call.effect, index);
      if (index >= 0 && index < 5) {
        EXPECT_EQ(read, value);
      }
    }
    ++inside;
  };
  liveThrough();
}

TEST_F(CallsFromCallbacks, MayAskForEveryText) {
  host.onCall = [&](const RecordingHost::Call& call) {
    char text[256] = "";
    for (const VstInt32 opcode :
         {effGetProgramName, effGetParamLabel, effGetParamDisplay, effGetParamName,
          effGetEffectName, effGetVendorString, effGetProductString}) {
      send(call.effect, opcode, 0, text);
    }
    EXPECT_EQ(send(call.effect, effGetPlugCategory), 4);
    EXPECT_EQ(send(call.effect, effGetProgram), 0);
    ++inside;
  };
  liveThrough();
}

TEST_F(CallsFromCallbacks, MaySaveAndRestore) {
  host.onCall = [&](const RecordingHost::Call& call) {
    void* data = nullptr;
    const VstIntPtr size = send(call.effect, effGetChunk, 0, &data);
    EXPECT_EQ(size, 10545);
    EXPECT_EQ(send(call.effect, effSetChunk, size, data), 0);
    ++inside;
  };
  liveThrough();
}

TEST_F(CallsFromCallbacks, MaySwitchOnAndOff) {
  host.onCall = [&](const RecordingHost::Call& call) {
    // inside a block: that would be a host of no sense
    if (call.opcode == audioMasterPinConnected) return;
    send(call.effect, effMainsChanged, 0);
    send(call.effect, effMainsChanged, 1);
    ++inside;
  };
  liveThrough();
}

}  // namespace
