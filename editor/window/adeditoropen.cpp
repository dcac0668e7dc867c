// Builds the effect's controls: what stands where.
#include "editor/base/bitmaps.h"
#include "editor/base/myframe.h"
#include "editor/controls/cabout.h"
#include "editor/controls/cvumeter1.h"
#include "editor/controls/stringconvert.h"
#include "editor/window/adeditor.h"
#include "effect/trelvan.h"

using VSTGUI::CBitmap;
using VSTGUI::CParamDisplay;
using VSTGUI::CPoint;
using VSTGUI::CRect;

namespace {

using Converter = void (*)(float, char*);

// Value 1, the wide end, is at the left, where the meter has its S: pushing depth toward S widens.
constexpr std::int32_t kSliderStyle = VSTGUI::CSlider::kRight;

constexpr std::int32_t kNoTag = -1;
constexpr std::int32_t kMeterSteps = 182;

// backgroundTop: the row of the background that the display shows, somewhat below its own.
struct DisplayPlace {
  CRect size;
  double backgroundTop;
  VSTGUI::CHoriTxtAlign alignment;
};

CParamDisplay* makeDisplay(const DisplayPlace& place, CBitmap* background, Converter converter) {
  auto* display = new CParamDisplay(place.size, background, 0);
  display->setTag(kNoTag);
  display->setBackOffset(CPoint(place.size.left, place.backgroundTop));
  display->setFont(VSTGUI::kNormalFontSmall);
  display->setFontColor(VSTGUI::kBlackCColor);
  display->setHoriAlign(place.alignment);
  display->setValueToStringFunction([converter](float value, char text[256], CParamDisplay*) {
    converter(value, text);
    return true;
  });
  return display;
}

CRect sizedLike(double left, double top, const CBitmap& bitmap, double images = 1) {
  return {left, top, left + bitmap.getWidth(), top + bitmap.getHeight() / images};
}

}  // namespace

void ADEditor::addDisplays() {
  constexpr auto kRight = VSTGUI::kRightText;
  constexpr auto kLeft = VSTGUI::kLeftText;
  struct Caption {
    DisplayPlace place;
    float selector;  // of the caption's text
  };
  const Caption captions[] = {
      {{{2, 24, 42, 41}, 27, kRight}, 0.0F},    {{{258, 24, 298, 41}, 27, kLeft}, 0.1F},
      {{{2, 54, 42, 71}, 59, kRight}, 0.2F},    {{{2, 86, 42, 103}, 91, kRight}, 0.3F},
      {{{2, 118, 42, 135}, 123, kRight}, 0.4F},
  };
  for (const Caption& caption : captions) {
    CParamDisplay* display = makeDisplay(caption.place, background, parameterNameStringConvert);
    display->setValue(caption.selector);
    view->addView(display);
  }
  const auto on = loadBitmap(135);
  const auto off = loadBitmap(136);
  meter = new CVuMeter1(sizedLike(60, 25, *off), on, off, kMeterSteps, VSTGUI::CVuMeter::kHorizontal);
  meter->setTag(kNoTag);
  meter->setDecreaseStepValue(1.0F);
  meter->setMin(0.0F);
  meter->setMax(1.0F);
  meter->setDefaultValue(0.5F);
  meter->setValue(0.5F);
  view->addView(meter);
}

void ADEditor::addParameterControls() {
  constexpr double kTravelLeft = 63;
  constexpr double kTravelRight = 239;
  constexpr float kLargestFrequency = 20000.0F;  // Hz, the display's range
  const auto handle = loadBitmap(134);
  const auto addSlider = [&](std::int32_t tag, double top) {
    const CRect size(kTravelLeft, top, kTravelRight, top + handle->getHeight());
    auto* slider = new VSTGUI::CHorizontalSlider(size, this, tag, static_cast<std::int32_t>(kTravelLeft),
                                                 static_cast<std::int32_t>(kTravelRight - handle->getWidth()), handle,
                                                 background, CPoint(kTravelLeft, top), kSliderStyle);
    slider->setOffsetHandle(CPoint(0, 0));
    slider->setSliderMode(VSTGUI::CSliderMode::Touch);
    slider->setDefaultValue(0.5F);
    slider->setValue(trelvan->getParameter(tag));
    view->addView(slider);
    return slider;
  };
  const auto addValue = [&](double top, Converter converter, float value, float largest = 1.0F) {
    CParamDisplay* display =
        makeDisplay({CRect(258, top, 322, top + 17), top + 5, VSTGUI::kLeftText}, background, converter);
    display->setMax(largest);
    display->setValue(value);
    view->addView(display);
    return display;
  };
  depthSlider = addSlider(0, 51);
  depthValueDisplay = addValue(54, percentStringConvert, trelvan->getParameter(0));
  freqSlider = addSlider(1, 83);
  freqValueDisplay = addValue(86, frequencyStringConvert, trelvan->getParameterValue(1), kLargestFrequency);
  emphSlider = addSlider(2, 115);
  emphValueDisplay = addValue(118, percentStringConvert, trelvan->getParameterValue(2));

  const auto process = loadBitmap(137);
  const auto phase = loadBitmap(138);
  const auto addSwitch = [&](std::int32_t tag, double left, CBitmap* bitmap) {
    // Both switches have the size of the first one's picture: two states, one above the other.
    auto* button = new VSTGUI::COnOffButton(sizedLike(left, 151, *process, 2), this, tag, bitmap, 0);
    view->addView(button);
    return button;
  };
  switch3Button = addSwitch(3, 90, process);
  switch4Button = addSwitch(4, 170, phase);
  showParameter(3);
  showParameter(4);
}

void ADEditor::addAbout() {
  constexpr double kAreaWidth = 302;  // the panel is centred above the preset bar
  constexpr double kAreaHeight = 214;
  const auto panel = loadBitmap(139);
  CRect size(70, 182, 225, 202);
  CRect displayArea = sizedLike((kAreaWidth - panel->getWidth()) / 2, (kAreaHeight - panel->getHeight()) / 2, *panel);
  CPoint offset(0, 0);
  CPoint textOrigin(0, 8);
  about = new CAbout(size, this, 6, panel, displayArea, offset, textOrigin);
  view->addView(about);
}
