// Closing the window at every bad moment.
#include <memory>

#include "windowtest.h"

namespace {

class Closing : public WindowTest {
 protected:
  Closing() {
    host.setParameter(0, 0.5F);
    host.openEditor();
    opened = host.picture();
    host.forgetCalls();
  }

  // The editor works as on the first day.
  void expectWorking() {
    ASSERT_FALSE(host.isEditorOpen());
    EXPECT_TRUE(host.hasChildWindows(0));
    ASSERT_TRUE(host.openEditor());
    EXPECT_TRUE(host.hasChildWindows(1));
    const float before = host.parameter(4);
    host.click(places::kPhaseSwitch);
    EXPECT_EQ(host.parameter(4), 1.0F - before);
  }

  // Closes the editor from inside the plug-in's next call of this kind, as a host does that reacts
  // to it.
  void closeInside(VstInt32 opcode, bool reopen = false) {
    host.onCall = [this, opcode, reopen](const HostCall& call) {
      if (call.opcode != opcode || closedInside) return;
      closedInside = true;
      host.closeEditor();
      if (reopen) host.openOnly();
    };
  }

  WindowHost host;
  Picture opened;
  bool closedInside = false;
};

// What makes the plug-in call the host from inside an event.
struct Trigger {
  const char* name;
  VstInt32 opcode;
  void (*cause)(WindowHost& host);
};

void dragDepth(WindowHost& host) {
  host.moveTo(places::handleX(0.5F), places::handleY(0));
  host.press();
  host.moveTo(places::handleX(0.7F), places::handleY(0));
  host.moveTo(places::handleX(0.8F), places::handleY(0));
  host.release();
}

void renameByReturn(WindowHost& host) {
  host.click(places::kName);
  host.type("x");
  host.key(XKB_KEY_Return);
}

const Trigger kTriggers[] = {
    {"BeginOfADrag", audioMasterBeginEdit, dragDepth},
    {"Drag", audioMasterAutomate, dragDepth},
    {"EndOfADrag", audioMasterEndEdit, dragDepth},
    {"BeginOfASwitch", audioMasterBeginEdit,
     [](WindowHost& host) { host.click(places::kProcessSwitch); }},
    {"Switch", audioMasterAutomate, [](WindowHost& host) { host.click(places::kProcessSwitch); }},
    {"EndOfASwitch", audioMasterEndEdit,
     [](WindowHost& host) { host.click(places::kProcessSwitch); }},
    {"ControlClick", audioMasterAutomate,
     [](WindowHost& host) {
       host.setParameter(0, 0.8F);
       host.keyDown(XKB_KEY_Control_L);
       host.click(places::handleX(0.8F), places::handleY(0));
       host.keyUp(XKB_KEY_Control_L);
     }},
    {"Rocker", audioMasterUpdateDisplay,
     [](WindowHost& host) { host.click(places::kRockerRight); }},
    {"RockersEmptyGesture", audioMasterEndEdit,
     [](WindowHost& host) { host.click(places::kRockerRight); }},
    {"RockersWheel", audioMasterUpdateDisplay,
     [](WindowHost& host) { host.wheel(places::kRockerRight, -4); }},
    {"NameByReturn", audioMasterUpdateDisplay, renameByReturn},
    {"NameByAClickElsewhere", audioMasterUpdateDisplay,
     [](WindowHost& host) {
       host.click(places::kName);
       host.type("x");
       host.click(places::kAbout);
     }},
    {"NameByLossOfFocus", audioMasterUpdateDisplay,
     [](WindowHost& host) {
       host.click(places::kName);
       host.type("x");
       host.focusOther();
       host.idle(3);
     }},
    {"ListByClick", audioMasterUpdateDisplay,
     [](WindowHost& host) {
       host.click(places::kMenu);
       host.click(places::listEntry(9));
     }},
    {"ListByReturn", audioMasterUpdateDisplay,
     [](WindowHost& host) {
       host.click(places::kMenu);
       host.key(XKB_KEY_Down);
       host.key(XKB_KEY_Return);
     }},
    {"Recall", audioMasterUpdateDisplay,
     [](WindowHost& host) {
       host.click(places::kStoreA);
       host.click(places::kRecallA);
     }},
    {"SlidersKeyFromTheHost", audioMasterAutomate,
     [](WindowHost& host) {
       host.click(places::handleX(0.5F), places::handleY(0));
       constexpr VstIntPtr kUp = 12;  // the interface's number of the key
       host.dispatch(effEditKeyDown, 0, kUp);
     }},
};

class ClosingInside : public Closing, public ::testing::WithParamInterface<Trigger> {};

std::string nameOf(const ::testing::TestParamInfo<Trigger>& info) {
  return info.param.name;
}

}  // namespace

TEST_P(ClosingInside, ACallIsSafe) {
  closeInside(GetParam().opcode);
  GetParam().cause(host);
  ASSERT_TRUE(closedInside);
  host.idle(3);
  expectWorking();
}

TEST_P(ClosingInside, ACallAndOpeningAgainIsSafe) {
  closeInside(GetParam().opcode, true);
  GetParam().cause(host);
  ASSERT_TRUE(closedInside);
  host.idle(3);
  EXPECT_TRUE(host.hasChildWindows(1));
  host.closeEditor();
  expectWorking();
}

INSTANTIATE_TEST_SUITE_P(Closing, ClosingInside, ::testing::ValuesIn(kTriggers), nameOf);

TEST_F(Closing, WithTheListOpen) {
  host.click(places::kMenu);
  host.hover(places::listEntry(5));
  host.closeEditor();
  EXPECT_EQ(host.currentPreset(), 0);
  EXPECT_TRUE(host.gestureCalls().empty());
  expectWorking();
}

TEST_F(Closing, WithTheListOpenAndTheMouseDown) {
  host.hover(places::kMenu);
  host.press();
  host.hover(places::listEntry(5));
  host.closeEditor();
  host.display.release(1);
  EXPECT_EQ(host.currentPreset(), 0);
  expectWorking();
}

TEST_F(Closing, WithTheAboutPanelOpen) {
  host.click(places::kAbout);
  host.settle();
  host.closeEditor();
  expectWorking();
}

TEST_F(Closing, WithATextEntryOpen) {
  host.click(places::kName);
  host.type("lost");
  host.closeEditor();
  EXPECT_EQ(host.programName(), "init");
  EXPECT_TRUE(host.calls(audioMasterUpdateDisplay).empty());
  expectWorking();
}

TEST_F(Closing, WithADialogOpen) {
  FakeProgram zenity(folder / "bin", "zenity");
  host.click(places::kLoadPreset);
  ASSERT_TRUE(host.idleUntil([&] { return zenity.wasAsked(); }));
  host.closeEditor();
  EXPECT_FALSE(zenity.isRunning());
  expectWorking();
}

TEST_F(Closing, WithAButtonHeld) {
  for (const Area& button :
       {places::kStoreB, places::kRockerLeft, places::kPhaseSwitch, places::kName}) {
    host.hover(button);
    host.press();
    host.closeEditor();
    host.display.release(1);
    ASSERT_TRUE(host.openEditor());
    EXPECT_EQ(host.picture(), opened);
  }
  host.closeEditor();
  expectWorking();
}

TEST_F(Closing, InTheMiddleOfADragEndsItForTheHostToo) {
  host.moveTo(places::handleX(0.5F), places::handleY(0));
  host.press();
  host.moveTo(places::handleX(0.7F), places::handleY(0));
  host.closeEditor();
  host.display.release(1);
  EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), host.calls(audioMasterEndEdit).size());
  expectWorking();
}

TEST_F(Closing, AgainFromInsideTheEndThatTheClosingMakes) {
  host.moveTo(places::handleX(0.5F), places::handleY(0));
  host.press();
  closeInside(audioMasterEndEdit);
  host.closeEditor();
  host.display.release(1);
  EXPECT_TRUE(closedInside);
  expectWorking();
}

TEST_F(Closing, Twice) {
  host.closeEditor();
  host.closeEditor();
  expectWorking();
}

TEST_F(Closing, AfterTheHostsWindowHasGone) {
  for (const Area* open :
       {static_cast<const Area*>(nullptr), &places::kMenu, &places::kAbout, &places::kName}) {
    WindowHost other(1);
    other.openEditor();
    if (open != nullptr) other.click(*open);
    other.destroyParent();
    other.idle(3);
    other.setParameter(0, 0.9F);
    other.idleFor(50);
    other.closeEditor();
  }
  host.closeEditor();
  expectWorking();
}

TEST_F(Closing, TheInstanceWithItsWindowOpen) {
  for (const Area& open : {places::kMenu, places::kAbout, places::kName}) {
    WindowHost other(1);
    other.openEditor();
    other.click(open);
    other.dispatch(effClose);
    EXPECT_TRUE(other.hasChildWindows(0));
    other.forgetInstance();
  }
  host.closeEditor();
  expectWorking();
}

TEST_F(Closing, TwoInstancesInAnyOrder) {
  for (int order = 0; order < 4; ++order) {
    WindowHost other(1);
    other.openEditor();
    WindowHost& first = order % 2 == 0 ? host : other;
    WindowHost& second = order % 2 == 0 ? other : host;
    first.closeEditor();
    second.click(places::kPhaseSwitch);
    EXPECT_EQ(second.parameter(4), 1.0F);
    second.setParameter(4, 0.0F);
    if (order / 2 == 0) {
      second.closeEditor();
      ASSERT_TRUE(second.openEditor());
    }
    if (!host.isEditorOpen()) {
      ASSERT_TRUE(host.openEditor());
    }
  }
  host.closeEditor();
  expectWorking();
}

TEST_F(Closing, OneOfTwoInstancesFromTheOthersCall) {
  WindowHost other(1);
  other.openEditor();
  host.onCall = [&](const HostCall& call) {
    if (call.opcode == audioMasterAutomate && other.isEditorOpen()) other.closeEditor();
  };
  host.click(places::kPhaseSwitch);
  EXPECT_FALSE(other.isEditorOpen());
  EXPECT_TRUE(other.hasChildWindows(0));
  host.idle(3);
  host.closeEditor();
  expectWorking();
}

TEST_F(Closing, TheOtherInstanceAltogetherFromACall) {
  auto other = std::make_unique<WindowHost>(1);
  other->openEditor();
  other->click(places::kMenu);
  host.onCall = [&](const HostCall& call) {
    if (call.opcode == audioMasterAutomate) other.reset();
  };
  host.idle();
  host.click(places::kPhaseSwitch);  // closes the other's list, which has the pointer
  host.click(places::kPhaseSwitch);
  EXPECT_EQ(other, nullptr);
  host.onCall = nullptr;
  host.idle(3);
  host.closeEditor();
  expectWorking();
}

// A host may hand out idle time from inside a callback, and may set a whole state there.
TEST_F(Closing, IdlingInsideACallIsSafe) {
  const std::vector<unsigned char> state = host.chunk();
  int calls = 0;
  host.onCall = [&](const HostCall& call) {
    if (call.opcode != audioMasterAutomate) return;
    ++calls;
    host.dispatch(effEditIdle);
    host.dispatch(effEditIdle);
  };
  dragDepth(host);
  EXPECT_EQ(calls, 2);
  host.onCall = [&](const HostCall& call) {
    if (call.opcode == audioMasterEndEdit && calls++ < 5) host.setChunk(state);
  };
  host.click(places::kPhaseSwitch);
  host.onCall = nullptr;
  host.moveAway();
  EXPECT_EQ(host.picture(), opened);
  host.closeEditor();
  expectWorking();
}

// The wheel's second click and a press wait in the same pass in which the first click closes the
// window.
TEST_F(Closing, WhatComesAfterwardsInTheSamePassBeginsNoGesture) {
  for (const VstInt32 opcode : {audioMasterBeginEdit, audioMasterAutomate}) {
    for (const bool reopen : {false, true}) {
      SCOPED_TRACE(std::to_string(opcode) + (reopen ? ", opened again" : ""));
      if (!host.isEditorOpen()) host.openEditor();
      host.setParameter(0, 0.5F);
      host.moveTo(places::handleX(0.5F), places::handleY(0));
      host.settle();
      host.forgetCalls();
      closedInside = false;
      closeInside(opcode, reopen);
      constexpr int kWheelUp = 4;
      for (const int button : {kWheelUp, kWheelUp, 1}) {
        host.display.press(button);
        host.display.release(button);
      }
      host.idle(2);
      host.onCall = nullptr;
      EXPECT_TRUE(closedInside);
      host.closeEditor();
      EXPECT_EQ(host.calls(audioMasterBeginEdit).size(), 1U);
      EXPECT_EQ(host.calls(audioMasterEndEdit).size(), 1U);
    }
  }
}
