// A window in which the current preset is renamed, and what its host hears of that.
#pragma once

#include "windowtest.h"

class Name : public WindowTest {
 protected:
  Name() {
    host.setParameter(0, 0.5F);
    host.openEditor();
    closed = host.picture();
  }

  void startEntry(int button = 1) {
    host.click(places::kName, button);
    host.settle();
    host.forgetCalls();
  }

  // The list's entry 0 as it looks; the list is closed again.
  Picture list() {
    host.click(places::kMenu);
    host.moveAway();
    const Picture picture = host.picture();
    host.key(XKB_KEY_Escape);
    host.settle();
    return picture;
  }

  // The host hears of a confirmed name once, and of nothing else.
  void expectConfirmed(const std::string& name) {
    EXPECT_EQ(host.programName(), name);
    EXPECT_EQ(host.programName(0), name);
    EXPECT_EQ(host.calls(audioMasterUpdateDisplay).size(), 1U);
    EXPECT_TRUE(host.gestureCalls().empty());
    expectIdle();
  }

  void expectCancelled() {
    EXPECT_EQ(host.programName(), "init");
    EXPECT_TRUE(host.calls(audioMasterUpdateDisplay).empty());
    EXPECT_TRUE(host.gestureCalls().empty());
    host.moveAway();
    EXPECT_EQ(host.picture(), closed);
    expectIdle();
  }

  // No entry is open: typing reaches nothing.
  void expectIdle() {
    host.moveAway();
    const Picture now = host.picture();
    host.type("x");
    EXPECT_EQ(host.picture(), now);
  }

  WindowHost host;
  Picture closed;
};
