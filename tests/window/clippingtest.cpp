// Whether the longest texts are shown whole, at the window's own size and larger.
#include <algorithm>
#include <cmath>
#include <memory>
#include <thread>

#include "editor/window/adeditor.h"
#include "effect/trelvan.h"
#include "lib/coffscreencontext.h"
#include "settingsmanager.h"
#include "tests/support/recordinghost.h"
#include "vstgui.h"
#include "windowtest.h"

namespace {

using VSTGUI::CParamDisplay;
using VSTGUI::CPoint;
using VSTGUI::CRect;

// How large the ink of a text is, in pixels.
struct Ink {
  int width = 0;
  int height = 0;
};

class Clipping : public WindowTest, public ::testing::WithParamInterface<double> {
 protected:
  Clipping() {
    desktop.setResourceDpi(static_cast<int>(96 * scale));
    effect = std::make_unique<Trelvan>(RecordingHost::callback);
  }
  ~Clipping() override {
    effect.reset();
    display.destroyWindow(window);
  }

  ADEditor& editor() { return *static_cast<ADEditor*>(effect->getEditor()); }
  void open() {
    display.moveTo(1000, 760);
    ASSERT_TRUE(editor().open(reinterpret_cast<void*>(static_cast<std::uintptr_t>(window))));
    settle();
  }
  void settle() {
    for (int pass = 0; pass < 8; ++pass) {
      display.sync();
      editor().idle();
      std::this_thread::sleep_for(kRedrawTime);
    }
  }
  void click(const Area& area) {
    display.moveTo(place.left + static_cast<int>(area.centreX() * scale),
                   place.top + static_cast<int>(area.centreY() * scale));
    settle();
    display.press(1);
    settle();
    display.release(1);
    settle();
  }

  CParamDisplay* displayAt(const Area& area) {
    const CRect size(area.left, area.top, area.right, area.bottom);
    CParamDisplay* found = nullptr;
    VSTGUI::CViewContainer* root = editor().getFrame()->getView(0)->asViewContainer();
    root->forEachChild([&](VSTGUI::CView* child) {
      if (child->getViewSize() == size) found = dynamic_cast<CParamDisplay*>(child);
    });
    return found;
  }

  // What the area shows that differs from its ground, which `inked` knows.
  template <typename Inked>
  Ink inkIn(const Area& area, const Inked& inked) {
    const Picture picture = display.picture(place);
    Area found{picture.width, picture.height, 0, 0};
    const int right = std::min(pixels(area.right), picture.width);
    for (int y = pixels(area.top); y < pixels(area.bottom); ++y) {
      for (int x = pixels(area.left); x < right; ++x) {
        if (!inked(picture.at(x, y))) continue;
        found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1),
                 std::max(found.bottom, y + 1)};
      }
    }
    if (found.right == 0) return {};
    return {found.right - found.left, found.bottom - found.top};
  }

  // The same text where nothing limits it.
  Ink inkOf(const std::string& text, VSTGUI::CFontRef font) const {
    constexpr int kWidth = 1000, kHeight = 100;
    const auto larger = VSTGUI::makeOwned<VSTGUI::CFontDesc>(*font);
    larger->setSize(font->getSize() * scale);
    const auto context = VSTGUI::COffscreenContext::create(CPoint(kWidth, kHeight));
    context->beginDraw();
    context->setFont(larger);
    context->setFontColor(VSTGUI::kBlackCColor);
    const CRect all(0, 0, kWidth, kHeight);
    context->drawString(VSTGUI::UTF8String(text), all, VSTGUI::kCenterText, true);
    context->endDraw();
    const auto access = VSTGUI::owned(VSTGUI::CBitmapPixelAccess::create(context->getBitmap()));
    int left = kWidth, right = 0, top = kHeight, bottom = 0;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        VSTGUI::CColor colour;
        access->setPosition(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
        access->getColor(colour);
        if (colour.alpha < kFaint) continue;
        left = std::min(left, x);
        right = std::max(right, x + 1);
        top = std::min(top, y);
        bottom = std::max(bottom, y + 1);
      }
    }
    return {right - left, bottom - top};
  }

  static void expectWhole(const Ink& shown, const Ink& whole) {
    constexpr int kRounding = 2;  // pixels: letters begin at another part of one
    // The larger window spaces letters as the smaller one does.
    const double spacing = std::max<double>(kRounding, 0.08 * whole.width);
    ASSERT_GT(whole.width, 0);
    EXPECT_NEAR(shown.width, whole.width, spacing);
    EXPECT_NEAR(shown.height, whole.height, kRounding);
  }

  int pixels(int points) const { return static_cast<int>(std::lround(points * scale)); }

  static constexpr int kFaint = 60;  // of 255: less is the smoothing of an edge
  const double scale = GetParam();
  SettingsManager desktop;
  TestDisplay display;
  const Area place{10, 5, 10 + pixels(302), 5 + pixels(251)};  // on the screen
  xcb_window_t window = display.makeWindow(place);
  RecordingHost host;
  std::unique_ptr<Trelvan> effect;
};

std::string nameOf(const ::testing::TestParamInfo<double>& info) {
  return "At" + std::to_string(std::lround(info.param * 100)) + "Percent";
}

// On the panel, which is one colour there.
bool onPanel(std::uint32_t pixel) {
  return channelDifference(pixel, 0xE3EAEF) >= 60;
}

}  // namespace

TEST_P(Clipping, TheLongestValuesAreShownWhole) {
  open();
  struct Value {
    int index;  // of the display
    float value;
    const char* text;
  };
  for (const Value& value :
       {Value{0, 1.0F, "100%"}, Value{2, 1.0F, "100%"}, Value{1, 999.0F, "999Hz"},
        Value{1, 20000.0F, "20.0kHz"}, Value{1, 0.1991F, "0.199Hz"}}) {
    SCOPED_TRACE(value.text);
    CParamDisplay* shown = displayAt({258, 54 + 32 * value.index, 322, 71 + 32 * value.index});
    ASSERT_NE(shown, nullptr);
    shown->setValue(value.value);
    settle();
    expectWhole(inkIn(places::valueDisplay(value.index), onPanel),
                inkOf(value.text, shown->getFont()));
  }
}

TEST_P(Clipping, TheCaptionsAreShownWhole) {
  open();
  const char* texts[] = {"S", "M", "depth", "freq", "emph"};
  for (std::size_t caption = 0; caption < std::size(texts); ++caption) {
    SCOPED_TRACE(texts[caption]);
    CParamDisplay* shown = displayAt(places::kCaptions[caption]);
    ASSERT_NE(shown, nullptr);
    expectWhole(inkIn(places::kCaptions[caption], onPanel),
                inkOf(texts[caption], shown->getFont()));
  }
}

// The longest names that there are, in the field and in the list: nothing reaches an edge.
TEST_P(Clipping, NamesKeepWithinTheirPlaces) {
  for (int preset = 0; preset < 32; ++preset) {
    effect->setPresetNo(preset);
    effect->setPresetName(preset % 2 == 0 ? "WWWWWWWWWWWWWWWWWWWWWWWW"
                                          : "mmmmmmmmmmmmjjjjjjjjjjjj");
  }
  open();
  const auto inField = [](std::uint32_t pixel) { return channelDifference(pixel, 0xBDCFDA) >= 60; };
  const auto nothing = [&](const Area& area) {
    const Ink ink = inkIn(area, inField);
    EXPECT_EQ(ink.width, 0) << area;
  };
  const Area& name = places::kName;
  EXPECT_GT(inkIn(name, inField).width, pixels(60));
  for (const Area& edge : {Area{name.left - 2, name.top, name.left + 1, name.bottom},
                           Area{name.right - 1, name.top, name.right + 2, name.bottom}})
    nothing(edge);
  click(places::kMenu);
  for (int entry = 0; entry < 31; ++entry) {  // the last one is the current one, and marked
    const Area row = places::listEntry(entry);
    EXPECT_GT(inkIn(row, inField).width, pixels(60)) << entry;
    nothing({row.left, row.top, row.left + 11, row.bottom});
    nothing({row.right - 2, row.top, row.right, row.bottom});
  }
}

TEST_P(Clipping, TheAboutPanelsLinesAreShownWhole) {
  open();
  click(places::kAbout);
  // Lettering of a dark colour on a light panel.
  const auto onSheet = [](std::uint32_t pixel) { return (pixel >> 8U & 0xFFU) < 185; };
  struct Line {
    int top;  // from the panel's
    VSTGUI::CFontRef font;
    const char* text;
  };
  const Line lines[] = {
      {8, VSTGUI::kNormalFontSmaller, "Orv Trelvan   v.1.9.9"},
      {25, VSTGUI::kNormalFontSmaller, "Made with care by Orv"},
      {42, VSTGUI::kNormalFontSmaller, "https://orv.example"},
      {79, VSTGUI::kNormalFontVerySmall, "VST PlugIn Technology by Steinberg"},
  };
  for (const Line& line : lines) {
    SCOPED_TRACE(line.text);
    const Area& panel = places::kAboutPanel;
    const Area inside{panel.left + 3, panel.top + line.top, panel.right - 3,
                      panel.top + line.top + 15};
    expectWhole(inkIn(inside, onSheet), inkOf(line.text, line.font));
    for (const int left : {inside.left, inside.right - 5}) {
      EXPECT_EQ(inkIn({left, inside.top, left + 5, inside.bottom}, onSheet).width, 0);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Window, Clipping, ::testing::Values(1., 1.5, 2.), nameOf);
