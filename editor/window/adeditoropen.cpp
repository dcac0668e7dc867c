// Builds the effect's controls: what stands where.
#include "editor/base/myframe.h"
#include "editor/base/sharedbitmaps.h"
#include "editor/controls/cabout.h"
#include "editor/controls/clitswitch.h"
#include "editor/controls/cparameterslider.h"
#include "editor/controls/cvaluedisplay.h"
#include "editor/controls/cvumeter1.h"
#include "editor/controls/stringconvert.h"
#include "editor/controls/windowcolors.h"
#include "editor/window/adeditor.h"
#include "effect/trelvan.h"
#include "platform/defaultfloats.h"
#include "vstgui.h"

using VSTGUI::CBitmap;
using VSTGUI::CParamDisplay;
using VSTGUI::CPoint;
using VSTGUI::CRect;

namespace {

using Converter = void (*)(float, char*);

// Value 1, the wide end, is at the left, where the meter has its S: pushing depth toward S widens.
constexpr std::int32_t kSliderStyle = VSTGUI::CSlider::kRight;

constexpr std::int32_t kNoTag = -1;
constexpr std::int32_t kAboutTag = 6;  // of no parameter
constexpr std::int32_t kMeterSteps = 182;

// The parameters' controls, in the order in which the keyboard reaches them.
struct SliderPlace {
  ParameterIndex index;
  double top;
};
constexpr SliderPlace kSliders[] = {{kWidthIndex, 51}, {kBaseFreqIndex, 83}, {kEmphasisIndex, 115}};
// caption at the left, value at the right, so much below the slider's top
constexpr double kTextBelowSlider = 3;
constexpr double kTextHeight = 17;

struct SwitchPlace {
  ParameterIndex index;
  double left;
  std::int32_t picture;
  std::int32_t underPointer;
};
constexpr SwitchPlace kSwitches[] = {{kProcessIndex, 90, 137, 141}, {kPhaseIndex, 170, 138, 142}};

// A value's entry has the preset name's colours.
constexpr EntryColors kEntryColors{.highlight = {true, kSelectionColor}};

// backgroundTop: the row of the background that the display shows, somewhat below its own.
struct DisplayPlace {
  CRect size;
  double backgroundTop;
  VSTGUI::CHoriTxtAlign alignment;
};

template <typename Display>
Display* makeDisplay(const DisplayPlace& place, CBitmap* background, Converter converter) {
  auto* display = new Display(place.size, background, 0);
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

// What parameterNameStringConvert turns into the parameter's caption: 0.2 for the first that has
// one, then 0.1 more each.
float captionSelector(VstInt32 index) {
  int place = 2;
  for (VstInt32 before = 0; before < index; ++before)
    place += parameterAt(before).caption != nullptr ? 1 : 0;
  const DefaultFloats floats;  // a little less would be the caption before
  return 0.1F * static_cast<float>(floats.of(place));
}

CRect sizedLike(double left, double top, const CBitmap& bitmap, double images = 1) {
  return {left, top, left + bitmap.getWidth(), top + bitmap.getHeight() / images};
}

}  // namespace

void ADEditor::addCaptions() {
  const auto add = [this](const DisplayPlace& place, float selector) {
    auto* caption = makeDisplay<CParamDisplay>(place, background, parameterNameStringConvert);
    caption->setValue(selector);
    view->addView(caption);
  };
  add({{2, 24, 42, 41}, 27, VSTGUI::kRightText}, 0.0F);    // captionS
  add({{258, 24, 298, 41}, 27, VSTGUI::kLeftText}, 0.1F);  // captionM
  for (const SliderPlace& slider : kSliders) {             // captionDepth, captionFreq, captionEmph
    const double top = slider.top + kTextBelowSlider;
    add({{2, top, 42, top + kTextHeight}, top + 5, VSTGUI::kRightText},
        captionSelector(slider.index));
  }
}

void ADEditor::addMeter() {
  const auto on = sharedBitmap(135);
  const auto off = sharedBitmap(136);
  meter =
      new CVuMeter1(sizedLike(60, 25, *off), on, off, kMeterSteps, VSTGUI::CVuMeter::kHorizontal);
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
  const auto handle = sharedBitmap(134);
  const auto litHandle = sharedBitmap(140);
  for (const SliderPlace& place : kSliders) {
    auto& [control, slider, display] = views[static_cast<std::size_t>(place.index)];
    const CRect size(kTravelLeft, place.top, kTravelRight, place.top + handle->getHeight());
    slider = new CParameterSlider(size, this, place.index, static_cast<std::int32_t>(kTravelLeft),
                                  static_cast<std::int32_t>(kTravelRight - handle->getWidth()),
                                  handle, background, CPoint(kTravelLeft, place.top), kSliderStyle);
    slider->setLitHandle(litHandle);
    slider->setOffsetHandle(CPoint(0, 0));
    slider->setSliderMode(VSTGUI::CSliderMode::Touch);
    slider->setDefaultValue(0.5F);
    control = slider;
    view->addView(control);

    const bool asHertz = parameterAt(place.index).unit == Parameter::Unit::hertz;
    const double top = place.top + kTextBelowSlider;
    display = makeDisplay<CValueDisplay>(
        {CRect(258, top, 322, top + kTextHeight), top + 5, VSTGUI::kLeftText}, background,
        asHertz ? frequencyStringConvert : percentStringConvert);
    display->setColors(kEntryColors);
    display->whenTyped(
        [this, index = place.index](const std::string& text) { takeTyped(index, text); });
    if (asHertz) display->setMax(kLargestFrequency);
    view->addView(display);
    showParameter(place.index);
  }
  const auto firstPicture = sharedBitmap(kSwitches[0].picture);
  for (const SwitchPlace& place : kSwitches) {
    // All have the size of the first one's picture: two states, one above the other.
    const CRect size = sizedLike(place.left, 151, *firstPicture, 2);
    auto* button = new CLitSwitch(size, this, place.index, sharedBitmap(place.picture),
                                  sharedBitmap(place.underPointer));
    views[static_cast<std::size_t>(place.index)].control = button;
    view->addView(button);
    showParameter(place.index);
  }
}

void ADEditor::addAbout() {
  constexpr double kAreaWidth = 302;  // the panel is centred above the preset bar
  constexpr double kAreaHeight = 214;
  const auto panel = sharedBitmap(139);
  CRect size(70, 182, 225, 202);
  CRect displayArea = sizedLike((kAreaWidth - panel->getWidth()) / 2,
                                (kAreaHeight - panel->getHeight()) / 2, *panel);
  CPoint offset(0, 0);
  CPoint textOrigin(0, 8);
  about = new CAbout(size, this, kAboutTag, panel, displayArea, offset, textOrigin);
  view->addView(about);
}
