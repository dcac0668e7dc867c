// The editor as the effect base knows it: its answers where nothing is overridden.
#include "plugin/aeffeditor.h"

#include <gtest/gtest.h>

#include "plugin/vstkeycode.h"

namespace {

TEST(AEffEditor, HasNoRectangle) {
  AEffEditor editor(nullptr);
  ERect some{};
  ERect* rect = &some;
  EXPECT_FALSE(editor.getRect(&rect));
  EXPECT_EQ(rect, nullptr);
}

TEST(AEffEditor, IsOpenBetweenOpenAndClose) {
  AEffEditor editor(nullptr);
  int window = 0;
  EXPECT_FALSE(editor.isOpen());
  EXPECT_FALSE(editor.open(&window));
  EXPECT_TRUE(editor.isOpen());
  editor.close();
  EXPECT_FALSE(editor.isOpen());
}

TEST(AEffEditor, TakesNoKeyNoWheelAndNoKnobMode) {
  AEffEditor editor(nullptr);
  VstKeyCode key{};
  EXPECT_FALSE(editor.onKeyDown(key));
  EXPECT_FALSE(editor.onKeyUp(key));
  EXPECT_FALSE(editor.onWheel(1.0F));
  EXPECT_FALSE(editor.setKnobMode(2));
}

}  // namespace
