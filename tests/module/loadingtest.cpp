// Loading, unloading and loading again; hosts of several versions; several instances; no display.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/module/instance.h"
#include "tests/support/silenthost.h"

namespace {

using imagebytes::distinctBank;

class Loading : public ModuleTest {};

TEST_F(Loading, GivesNoEffectToAHostWhoseVersionIsZero) {
  host.answers[audioMasterVersion] = 0;
  EXPECT_EQ(module.create(RecordingHost::callback), nullptr);
  for (const RecordingHost::Call& call : host.calls) {
    EXPECT_EQ(call.opcode, audioMasterVersion) << "nothing else is asked";
    EXPECT_EQ(call.effect, nullptr);
    EXPECT_EQ(call.index, 0);
    EXPECT_EQ(call.value, 0);
    EXPECT_EQ(call.ptr, nullptr);
    EXPECT_EQ(call.opt, 0.0F);
  }
}

TEST_F(Loading, ServesHostsThatAnswer2And2300And2400) {
  for (const VstIntPtr version : {2, 2300, 2400}) {
    host.answers[audioMasterVersion] = version;
    Instance instance(module);
    ASSERT_NE(instance.effect, nullptr) << version;
    EXPECT_EQ(instance.effect->magic, kEffectMagic);
  }
}

// Some hosts follow a null pointer when they are asked anything else about an effect that is not
// there yet.
TEST_F(Loading, AsksOnlyTheVersionWithoutAnEffect) {
  Instance instance(module);
  for (const RecordingHost::Call& call : host.calls) {
    if (call.effect == nullptr) {
      EXPECT_EQ(call.opcode, audioMasterVersion);
    }
  }
}

TEST_F(Loading, AsksNothingThatHostsAnswerWithNullOrZeroWhileItIsMade) {
  Instance instance(module);
  for (const RecordingHost::Call& call : host.calls) {
    for (const VstInt32 opcode : {audioMasterCurrentId, audioMasterGetTime, audioMasterIdle}) {
      EXPECT_NE(call.opcode, opcode);
    }
  }
}

// Scanners make two, ask the second one its category and leave it.
// reachable until the process ends, as a host's own record of it would be
AEffect* leftOver = nullptr;

void useModuleOnce() {
  LoadedModule module;
  Instance instance(module, silentHost);
  instance.setChunk(imagebytes::chunk(distinctBank(), 9));
  instance.mainsChanged(true);
  EXPECT_TRUE(isFinite(instance.render(noise(1000))));
  EXPECT_EQ(instance.chunk(), imagebytes::chunk(distinctBank(), 9));
}

TEST(LoadingAgain, WorksAfterEveryUnloading) {
  for (int i = 0; i < 3; ++i) useModuleOnce();
}

TEST(LoadingAgain, WorksWithAnInstanceLeftOver) {
  {
    LoadedModule module;
    leftOver = module.create(silentHost);
    ASSERT_NE(leftOver, nullptr);
    EXPECT_EQ(leftOver->dispatcher(leftOver, effGetPlugCategory, 0, 0, nullptr, 0.0F), 4);
  }
  useModuleOnce();
}

TEST(LoadingDeathTest, EndsWellWithAnInstanceLeftOverAndTheModuleUnloaded) {
  EXPECT_EXIT(
      {
        {
          LoadedModule module;
          leftOver = module.create(silentHost);
        }
        std::exit(leftOver != nullptr ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(LoadingDeathTest, EndsWellWithModuleAndInstanceLeftOver) {
  EXPECT_EXIT(
      {
        static LoadedModule* const module = new LoadedModule;
        leftOver = module->create(silentHost);
        leftOver->dispatcher(leftOver, effMainsChanged, 0, 1, nullptr, 0.0F);
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
}

TEST(LoadingTwice, GivesTheSameModule) {
  const LoadedModule first;
  const LoadedModule second;
  EXPECT_EQ(first.symbol("VSTPluginMain"), second.symbol("VSTPluginMain"));
}

TEST(LoadingWithoutADisplay, CreatesProcessesSavesAndRestores) {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "HOME", "XDG_RUNTIME_DIR"})
    unsetenv(name);
  useModuleOnce();
}

TEST_F(Loading, KeepsInstancesApart) {
  Instance first(module);
  Instance second(module);
  const imagebytes::Bytes firstState = imagebytes::chunk(distinctBank(), 9);
  imagebytes::Bank other = distinctBank();
  other[30] = {"another", {1.0F, 0.125F, 0.25F, 1.0F, 1.0F}};
  const imagebytes::Bytes secondState = imagebytes::chunk(other, 30);
  first.setChunk(firstState);
  second.setChunk(secondState);
  for (Instance* instance : {&first, &second}) {
    instance->setSampleRate(48000.0F);
    instance->mainsChanged(true);
  }
  // Both play at once, a block of each in turn.
  const Audio input = noise(4096);
  Audio firstOut;
  Audio secondOut;
  for (std::size_t at = 0; at < 4096; at += 256) {
    const auto piece = [&](const std::vector<float>& from) {
      return std::vector<float>(from.begin() + static_cast<long>(at),
                                from.begin() + static_cast<long>(at) + 256);
    };
    for (const auto& [instance, out] :
         {std::pair{&first, &firstOut}, std::pair{&second, &secondOut}}) {
      const Audio block = instance->render({piece(input.left), piece(input.right)});
      out->left.insert(out->left.end(), block.left.begin(), block.left.end());
      out->right.insert(out->right.end(), block.right.begin(), block.right.end());
    }
  }
  EXPECT_TRUE(firstOut == plainRendering(firstState, input));
  EXPECT_TRUE(secondOut == plainRendering(secondState, input));
  EXPECT_FALSE(firstOut == secondOut);
  EXPECT_EQ(first.chunk(), firstState);
  EXPECT_EQ(second.chunk(), secondState);
}

TEST_F(Loading, ClosesWithAnswerOne) {
  Instance instance(module);
  EXPECT_EQ(instance.close(), 1);
}

TEST_F(Loading, ClosesAnInstanceThatIsStillSwitchedOnOrWasNeverOpened) {
  Instance on(module);
  on.send(effOpen);
  on.mainsChanged(true);
  on.render(noise(100));
  EXPECT_EQ(on.close(), 1);
  Instance never(module);
  EXPECT_EQ(never.close(), 1);
}

}  // namespace
