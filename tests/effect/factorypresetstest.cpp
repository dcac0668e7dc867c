// The factory presets, name by name and value by value.
#include <gtest/gtest.h>

#include <string>

#include "effect/trelvan.h"
#include "tests/support/recordingeditor.h"
#include "tests/support/recordinghost.h"

namespace {

struct Expected {
  const char* name;
  float width;
  float baseFreq;
  float emphasis;
};

constexpr Expected kExpected[32] = {
    {"init", 0.0F, 0.5F, 0.0F},
    {"mix 1", 0.75F, 0.25F, 0.25F},
    {"mix 2", 0.5F, 0.61F, 0.12F},
    {"mix 3", 0.6F, 0.15F, 0.5F},
    {"room 1", 0.75F, 0.2F, 0.5F},
    {"room 2", 0.5F, 0.11F, 0.5F},
    {"room 3", 0.63F, 0.64F, 0.0F},
    {"techno space 1", 0.75F, 0.25F, 0.25F},
    {"techno space 2", 0.75F, 0.25F, 0.5F},
    {"piano 1", 0.6F, 0.24F, 0.0F},
    {"piano 2", 0.75F, 0.15F, 0.24F},
    {"piano 3", 0.75F, 0.58F, 0.3F},
    {"guitar 1", 0.55F, 0.8F, 0.0F},
    {"guitar 2", 0.6F, 0.23F, 0.0F},
    {"guitar 3", 1.0F, 0.44F, 0.5F},
    {"bas 1", 0.4F, 0.5F, 0.0F},
    {"bas 2", 0.65F, 0.18F, 0.37F},
    {"bas 3", 0.75F, 0.25F, 0.5F},
    {"bas 4", 0.6F, 0.52F, 0.19F},
    {"kick 1", 0.5F, 0.38F, 0.0F},
    {"kick 2", 0.7F, 0.35F, 0.2F},
    {"toms", 0.7F, 0.5F, 0.25F},
    {"over heads 1", 0.8F, 0.3F, 0.4F},
    {"over heads 2", 0.9F, 0.38F, 0.6F},
    {"init", 0.0F, 0.5F, 0.0F},
    {"init", 0.0F, 0.5F, 0.0F},
    {"init", 0.0F, 0.5F, 0.0F},
    {"init", 0.0F, 0.5F, 0.0F},
    {"init", 0.0F, 0.5F, 0.0F},
    {"init", 0.0F, 0.5F, 0.0F},
    {"init", 0.0F, 0.5F, 0.0F},
    {"init", 0.0F, 0.5F, 0.0F},
};

// A bank that held something else before, so that what is not written shows.
class FactoryPresets : public testing::Test {
 protected:
  FactoryPresets() {
    for (ACombProgram& preset : effect.bank()) {
      preset.rename("a name of twenty-three");
      for (int index = 0; index < 5; ++index) preset.setParameter(index, 0.987F);
    }
    effect.initPresets();
  }

  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
};

TEST_F(FactoryPresets, FillTheBank) {
  for (int slot = 0; slot < 32; ++slot) {
    const ACombProgram& preset = effect.preset(slot);
    EXPECT_STREQ(preset.name, kExpected[slot].name) << slot;
    EXPECT_EQ(preset.width, kExpected[slot].width) << slot;
    EXPECT_EQ(preset.baseFreq, kExpected[slot].baseFreq) << slot;
    EXPECT_EQ(preset.emphasis, kExpected[slot].emphasis) << slot;
    EXPECT_EQ(preset.process, 1.0F) << slot;
    EXPECT_EQ(preset.phase, 0.0F) << slot;
  }
}

TEST_F(FactoryPresets, HaveOnlyZerosBehindTheirNames) {
  for (int slot = 0; slot < 32; ++slot) {
    const std::string name(kExpected[slot].name);
    EXPECT_EQ(std::string(effect.preset(slot).name, 24), name + std::string(24 - name.size(), '\0'))
        << slot;
  }
}

TEST_F(FactoryPresets, EndWithTheSameInitAsTheFirst) {
  for (int slot = 24; slot < 32; ++slot) {
    for (int index = 0; index < 5; ++index) {
      EXPECT_EQ(effect.preset(slot).parameter(index), effect.preset(0).parameter(index));
    }
    EXPECT_STREQ(effect.preset(slot).name, effect.preset(0).name);
  }
}

TEST_F(FactoryPresets, InitDoesNotWiden) {
  effect.setPresetNo(24);
  EXPECT_EQ(effect.getParameterValue(0), 0.0F) << "side gain";
}

TEST_F(FactoryPresets, InitDiffersFromAFreshRecord) {
  const ACombProgram fresh;
  EXPECT_STREQ(effect.preset(0).name, fresh.name);
  EXPECT_NE(effect.preset(0).width, fresh.width);
  EXPECT_NE(effect.preset(0).emphasis, fresh.emphasis);
}

TEST_F(FactoryPresets, LeaveTheEffectsOwnValuesToTheSelection) {
  effect.setPresetNo(14);
  effect.initPresets();
  EXPECT_EQ(effect.getParameter(0), 1.0F);
  EXPECT_EQ(effect.getPresetNo(), 14);
}

}  // namespace
