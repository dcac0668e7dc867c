// The A and B memories of the preset bar.
#include "windowtest.h"

namespace {

class Memories : public WindowTest {
 protected:
  Memories() { host.openEditor(); }

  void select(int preset) {
    host.click(places::kMenu);
    host.click(places::listEntry(preset));
    ASSERT_EQ(host.currentPreset(), preset);
  }

  WindowHost host;
};

}  // namespace

// Factory presets 3, "mix 3" with width 0.6, and 7, "techno space 1" with width 0.75.
TEST_F(Memories, EachKeepsAPresetWithItsName) {
  struct Memory {
    Area store, recall;
    int preset;
    std::string name;
    float width;
  };
  const Memory memories[] = {{places::kStoreA, places::kRecallA, 3, "mix 3", 0.6F},
                             {places::kStoreB, places::kRecallB, 7, "techno space 1", 0.75F}};
  for (const Memory& memory : memories) {
    select(memory.preset);
    host.click(memory.store);
  }
  select(20);
  for (const Memory& memory : memories) {
    host.forgetCalls();
    host.click(memory.recall);
    EXPECT_EQ(host.currentPreset(), 20);
    EXPECT_EQ(host.programName(), memory.name);
    EXPECT_EQ(host.programName(20), memory.name);
    EXPECT_EQ(host.parameter(0), memory.width);
    EXPECT_GE(host.calls(audioMasterUpdateDisplay).size(), 1U);
    EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);
  }
  EXPECT_EQ(host.programName(3), "mix 3");
  EXPECT_EQ(host.programName(7), "techno space 1");
}

TEST_F(Memories, ARecallShowsInControlsFieldAndList) {
  select(3);
  host.moveAway();
  const Picture stored = host.picture();
  host.click(places::kStoreA);
  select(20);
  host.click(places::kRecallA);
  host.moveAway();
  EXPECT_EQ(host.picture(), stored);
}

TEST_F(Memories, AnEmptyOneRecallsNothing) {
  host.moveAway();
  const Picture before = host.picture();
  const std::vector<unsigned char> bank = host.chunk();
  host.forgetCalls();
  host.click(places::kRecallA);
  host.click(places::kRecallB);
  host.moveAway();
  EXPECT_EQ(host.chunk(), bank);
  EXPECT_EQ(host.picture(), before);
  EXPECT_TRUE(host.gestureCalls().empty());
}

TEST_F(Memories, AStoredOneIsThereInAnotherInstance) {
  host.setParameter(2, 0.33F);
  host.click(places::kStoreB);
  WindowHost other(1);
  other.openEditor();
  other.click(places::kRecallB);
  EXPECT_EQ(other.parameter(2), 0.33F);
}

TEST_F(Memories, ARightClickDoesNothing) {
  host.click(places::kStoreA, 3);
  host.click(places::kStoreA, 2);
  EXPECT_EQ(preferences(), "");
}

// The host sets a value on its own; the memory takes what is heard.
TEST_F(Memories, AValueOfTheHostsIsStored) {
  host.setParameter(1, 0.44F);
  host.click(places::kStoreA);
  host.setParameter(1, 0.9F);
  host.click(places::kRecallA);
  EXPECT_EQ(host.parameter(1), 0.44F);
}
