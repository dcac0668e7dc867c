// The about panel's text and kind.
#include "editor/controls/csplashscreenmyview.h"

#include "controltest.h"
#include "vstgui.h"

namespace {

using namespace controltest;

class SplashPanel : public ControlTest {
 protected:
  SplashPanel() {
    const auto bitmap = bitmapOf(200, 120, [](int, int) { return kBack; });
    owner = add(new VSTGUI::CSplashScreen(CRect(0, 0, 10, 10), nullptr, 6, bitmap, area));
  }
  const CRect area{50, 40, 250, 160};
  const CPoint textOrigin{4, 8};
  VSTGUI::CSplashScreen* owner;
};

// What the panel has to look like, drawn line by line.
class Expected : public VSTGUI::CView {
 public:
  explicit Expected(const CRect& size) : CView(size) {}
  void draw(VSTGUI::CDrawContext* context) override {
    context->setFillColor(kBack);
    context->drawRect(getViewSize(), VSTGUI::kDrawFilled);
    const CColor darkBlue(45, 45, 120), darkGrey(60, 60, 60);
    line(context, 0, VSTGUI::kNormalFontSmaller, darkBlue, "Orv Trelvan   v.1.9.9");
    line(context, 17, VSTGUI::kNormalFontSmaller, darkBlue, "Made with care by Orv");
    line(context, 34, VSTGUI::kNormalFontSmaller, darkBlue, "https://orv.example");
    line(context, 71, VSTGUI::kNormalFontVerySmall, darkGrey, "VST PlugIn Technology by Steinberg");
  }
  CLASS_METHODS_NOCOPY(Expected, CView)

 private:
  void line(VSTGUI::CDrawContext* context, double down, VSTGUI::CFontRef font, CColor colour,
            const char* text) {
    context->setFont(font);
    context->setFontColor(colour);
    const CRect place(50 + 4, 40 + 8 + down, 50 + 4 + 200, 40 + 8 + down + 15);
    context->drawString(text, place, VSTGUI::kCenterText, true);
  }
};

TEST_F(SplashPanel, WritesFourCentredLinesOnItsBitmap) {
  auto* expected = add(new Expected(area));
  const Picture drawn(frame, frame->getViewSize());
  root->removeView(expected);
  const Picture empty(frame, frame->getViewSize());
  EXPECT_FALSE(drawn == empty);
  add(new CSplashScreenMyView(area, owner, textOrigin));
  EXPECT_TRUE(Picture(frame, frame->getViewSize()) == drawn);
}

TEST_F(SplashPanel, EachLineKeepsToItsFifteenPixels) {
  add(new CSplashScreenMyView(area, owner, textOrigin));
  const Picture picture(frame, frame->getViewSize());
  const auto inked = [&](int y) {
    for (int x = 50; x < 250; ++x) {
      if (!(picture.at(x, y) == kBack)) return true;
    }
    return false;
  };
  for (const int top : {0, 17, 34, 71}) {
    int rows = 0;
    for (int y = 0; y < 15; ++y) rows += inked(48 + top + y) ? 1 : 0;
    EXPECT_GE(rows, 6) << "line at " << top;
  }
  for (const int gap : {15, 16, 32, 33, 50, 60, 69}) EXPECT_FALSE(inked(48 + gap)) << "row " << gap;
}

TEST_F(SplashPanel, IsOfItsOwnClassAndItsBases) {
  const auto panel = VSTGUI::makeOwned<CSplashScreenMyView>(area, owner, textOrigin);
  for (const char* name : {"CSplashScreenMyView", "CControl", "CView", "CBaseObject"}) {
    EXPECT_TRUE(panel->isTypeOf(name)) << name;
  }
  for (const char* name : {"CSplashScreen", "CAbout", "", "cview"})
    EXPECT_FALSE(panel->isTypeOf(name)) << name;
}

TEST_F(SplashPanel, ACopyLooksTheSameAndHasTheSameOwner) {
  const auto panel = VSTGUI::makeOwned<CSplashScreenMyView>(area, owner, textOrigin);
  auto* copy = dynamic_cast<CSplashScreenMyView*>(panel->newCopy());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->getViewSize(), area);
  EXPECT_EQ(copy->getTag(), 0);
  EXPECT_EQ(copy->getListener(), nullptr);
  EXPECT_EQ(copy->getBackground(), owner->getBackground());
  add(copy);
  const Picture ofCopy(frame, frame->getViewSize());
  root->removeView(copy);
  auto* original = panel.get();
  original->remember();
  add(original);
  EXPECT_TRUE(Picture(frame, frame->getViewSize()) == ofCopy);

  owner->setValue(1);
  click(CPoint(100, 100));  // on the original, which closes its owner
  EXPECT_EQ(owner->getValue(), 0.0F);
}

TEST_F(SplashPanel, ItsColoursAreDarkBlueAndDarkGrey) {
  EXPECT_EQ(kDarkBlueCColor, CColor(45, 45, 120, 255));
  EXPECT_EQ(kDarkGreyCColor, CColor(60, 60, 60, 255));
}

}  // namespace
