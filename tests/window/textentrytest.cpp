// In-place text entry of a label of any look, anywhere in a window: colours, place, and what the
// listener hears.
#include <algorithm>
#include <thread>

#include "editor/base/aeffguieditor.h"
#include "editor/base/myframe.h"
#include "editor/controls/corvtextedit.h"
#include "vstgui.h"
#include "windowtest.h"

namespace {

using VSTGUI::CColor;
using VSTGUI::CRect;

constexpr Area kWindow{20, 40, 320, 240};  // of the host's on the screen
constexpr Area kLabel{70, 75, 230, 99};    // of the label in it
constexpr std::uint32_t kRed = 0xFF0000, kGreen = 0x00FF00, kBlue = 0x0000FF;
const CColor kRedColor(255, 0, 0), kGreenColor(0, 255, 0), kBlueColor(0, 0, 255);

class Listener : public VSTGUI::IControlListener {
 public:
  void valueChanged(VSTGUI::CControl* control) override {
    calls += "value ";
    text = static_cast<COrvTextEdit*>(control)->getText().getString();
  }
  void controlBeginEdit(VSTGUI::CControl*) override { calls += "begin "; }
  void controlEndEdit(VSTGUI::CControl*) override { calls += "end "; }
  std::string calls, text;
};

// A window with one red label in a container of its own, on white.
class LabelEditor : public AEffGUIEditor {
 public:
  explicit LabelEditor(VSTGUI::IControlListener* heldListener)
      : AEffGUIEditor(nullptr), listener(heldListener) {}
  ~LabelEditor() override { closeFrame(); }

  bool open(void* window) override {
    AEffGUIEditor::open(window);
    if (!openFrame(window)) return false;
    view->setBackgroundColor(VSTGUI::kWhiteCColor);
    auto* inner = new VSTGUI::CViewContainer(CRect(50, 60, 300, 200));
    inner->setBackgroundColor(VSTGUI::kWhiteCColor);
    view->addView(inner);
    label = new COrvTextEdit(CRect(20, 15, 180, 39), listener, 1000, "HHHHHHHH", nullptr, 0, false);
    label->setFont(VSTGUI::makeOwned<VSTGUI::CFontDesc>("sans", 16));
    label->setFontColor(kRedColor);
    label->setBackColor(VSTGUI::kWhiteCColor);
    label->setHoriAlign(VSTGUI::kCenterText);
    inner->addView(label);
    return true;
  }

  COrvTextEdit* label = nullptr;  // the frame's

 protected:
  ERect windowSize() override { return {0, 0, 200, 300}; }  // top, left, bottom, right
  void keyboardLeft() override { label->endEntry(true); }

 private:
  VSTGUI::IControlListener* listener;
};

class TextEntryInTheFrame : public WindowTest {
 protected:
  TextEntryInTheFrame() : window(display.makeWindow(kWindow)) {
    display.moveTo(700, 600);
    EXPECT_TRUE(editor.open(reinterpret_cast<void*>(static_cast<std::uintptr_t>(window))));
    settle();
    closed = display.picture(kWindow);
  }
  ~TextEntryInTheFrame() override { display.destroyWindow(window); }

  void settle() {
    for (int pass = 0; pass < 8; ++pass) {
      display.sync();
      editor.idle();
      // the toolkit draws from a timer of 16
      std::this_thread::sleep_for(std::chrono::milliseconds(17));
    }
  }
  void click(int button = 1) {
    display.moveTo(kWindow.left + kLabel.centreX(), kWindow.top + kLabel.centreY());
    editor.idle();
    display.press(button);
    editor.idle();
    display.release(button);
    settle();
  }
  void tap(std::uint32_t key) {
    display.tap(key);
    settle();
  }
  Picture picture() {
    display.moveTo(700, 600);
    settle();
    return display.picture(kWindow);
  }
  // Whether some pixel has this colour; a thin line's may be mixed with a little of what
  // is behind it.
  static bool has(const Picture& picture, std::uint32_t colour) {
    constexpr int kNearly = 40;  // of a channel's 255
    return std::any_of(picture.pixels.begin(), picture.pixels.end(), [&](std::uint32_t pixel) {
      return channelDifference(pixel, colour) <= kNearly;
    });
  }
  static std::uint32_t number(const CColor& colour) {
    return static_cast<std::uint32_t>(colour.red) << 16U |
           static_cast<std::uint32_t>(colour.green) << 8U | colour.blue;
  }

  TestDisplay display;
  xcb_window_t window;
  Listener listener;
  LabelEditor editor{&listener};
  Picture closed;
};

}  // namespace

TEST_F(TextEntryInTheFrame, WithoutOwnColoursTheTextHasTheLabelsFontColour) {
  ASSERT_TRUE(has(closed, kRed)) << "the label itself";
  click();
  ASSERT_TRUE(editor.label->isBeingEdited());
  tap(XKB_KEY_End);  // nothing is selected any more
  const Picture open = picture();
  EXPECT_TRUE(has(open, kRed));
  EXPECT_FALSE(has(open, kBlue));
}

TEST_F(TextEntryInTheFrame, TheEditionColourIsTheTexts) {
  editor.label->setCustomFontEditionColor(kBlueColor);
  EXPECT_FALSE(has(picture(), kBlue)) << "not the label's own";
  click();
  tap(XKB_KEY_End);
  const Picture open = picture();
  EXPECT_TRUE(has(open, kBlue));
  EXPECT_FALSE(has(open, kRed));
}

TEST_F(TextEntryInTheFrame, WithoutOwnColoursTheSelectionHasTheToolkits) {
  const CColor usual = editor.getFrame()->getFocusColor();
  editor.label->setFontColor(kBlueColor);
  ASSERT_NE(number(usual), kBlue);
  ASSERT_FALSE(has(picture(), number(usual)));
  click();
  EXPECT_EQ(editor.getFrame()->getFocusColor(), usual);
  EXPECT_TRUE(has(picture(), number(usual)));
}

TEST_F(TextEntryInTheFrame, TheHighlightColourIsTheSelectionsUntilTheEntryEnds) {
  const CColor usual = editor.getFrame()->getFocusColor();
  editor.label->setCustomHighlightColor(kGreenColor);
  click();
  EXPECT_TRUE(has(picture(), kGreen));
  tap(XKB_KEY_Escape);
  EXPECT_FALSE(has(picture(), kGreen));
  EXPECT_EQ(editor.getFrame()->getFocusColor(), usual);
}

TEST_F(TextEntryInTheFrame, TheHighlightedColourIsTheSelectedTextsAlone) {
  editor.label->setCustomHighlightColor(kGreenColor);
  editor.label->setCustomFontHighlightedColor(kBlueColor);
  click();
  const Picture selected = picture();
  EXPECT_TRUE(has(selected, kBlue));
  EXPECT_FALSE(has(selected, kRed));
  tap(XKB_KEY_End);
  const Picture open = picture();
  EXPECT_FALSE(has(open, kBlue));
  EXPECT_TRUE(has(open, kRed));
}

TEST_F(TextEntryInTheFrame, TheCaretHasItsOwnColourWhereNothingIsSelected) {
  editor.label->setCustomCaretColor(kBlueColor);
  click();
  EXPECT_FALSE(has(picture(), kBlue));
  tap(XKB_KEY_End);
  bool lit = false;  // it blinks
  for (int look = 0; look < 10 && !lit; ++look) lit = has(picture(), kBlue);
  EXPECT_TRUE(lit);
}

TEST_F(TextEntryInTheFrame, TheFieldLiesOverItsLabelWhereverThatIs) {
  click();
  for (int letter = 0; letter < 40; ++letter) display.tap(XKB_KEY_M);
  const Area changed = differingArea(closed, picture());
  EXPECT_TRUE(kLabel.contains(changed)) << changed;
  EXPECT_GE(changed.right - changed.left, (kLabel.right - kLabel.left) * 9 / 10)
      << "it is as wide as the label";
}

TEST_F(TextEntryInTheFrame, EscapeLeavesTextAndListenerUntouched) {
  click();
  tap(XKB_KEY_x);
  tap(XKB_KEY_Escape);
  EXPECT_FALSE(editor.label->isBeingEdited());
  EXPECT_EQ(editor.label->getText().getString(), "HHHHHHHH");
  EXPECT_EQ(listener.calls, "");
  EXPECT_EQ(picture(), closed);
}

TEST_F(TextEntryInTheFrame, ReturnReplacesTheTextAndCallsTheListenerOnceAfterEachMouseButton) {
  for (const int button : {3, 1, 2}) {
    listener.calls.clear();
    click(button);
    ASSERT_TRUE(editor.label->isBeingEdited()) << "button " << button;
    tap(XKB_KEY_x);
    tap(static_cast<std::uint32_t>(XKB_KEY_0 + button));
    tap(XKB_KEY_Return);
    EXPECT_FALSE(editor.label->isBeingEdited());
    EXPECT_EQ(editor.label->getText().getString(), "x" + std::to_string(button));
    EXPECT_EQ(listener.calls, "begin value end ");
    EXPECT_EQ(listener.text, "x" + std::to_string(button));
  }
}

TEST_F(TextEntryInTheFrame, AFurtherPressWhileEditingChangesNothing) {
  click();
  tap(XKB_KEY_x);
  VSTGUI::CPoint where(80, 80);
  EXPECT_EQ(editor.label->onMouseDown(where, VSTGUI::CButtonState(VSTGUI::kRButton)),
            VSTGUI::kMouseEventHandled);
  EXPECT_TRUE(editor.label->isBeingEdited());
  tap(XKB_KEY_Return);
  EXPECT_EQ(editor.label->getText().getString(), "x");
  EXPECT_EQ(listener.calls, "begin value end ");
}

TEST_F(TextEntryInTheFrame, GivesItsTextIntoABufferAndANullBufferBack) {
  char buffer[32] = "";
  const COrvTextEdit& label = *editor.label;
  EXPECT_EQ(label.getText(buffer), buffer);
  EXPECT_STREQ(buffer, "HHHHHHHH");
  EXPECT_EQ(label.getText(static_cast<char*>(nullptr)), nullptr);
}
