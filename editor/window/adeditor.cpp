// The window's life, and parameter values on their way in and out of it.
#include "editor/window/adeditor.h"

#include <initializer_list>

#include "editor/base/bitmaps.h"
#include "editor/base/myframe.h"
#include "editor/controls/cabout.h"
#include "editor/controls/cvumeter1.h"
#include "effect/trelvan.h"

namespace {

constexpr std::int32_t kBackgroundBitmap = 128;
constexpr VstInt32 kParameters = Trelvan::kParameterCount;

void show(VSTGUI::CControl* control, float value) {
  if (control != nullptr) control->setValue(value);
}

float switchPosition(float raw) {
  return raw >= 0.5F ? 1.0F : 0.0F;
}  // a NaN is off

}  // namespace

ADEditor::ADEditor(Trelvan* owner) : CPresetSystemEditor(owner), trelvan(owner) {}

ADEditor::~ADEditor() {
  if (frame != nullptr) ADEditor::close();
}

ERect ADEditor::windowSize() {
  background = loadBitmap(kBackgroundBitmap);
  return {0, 0, static_cast<VstInt16>(background->getHeight()), static_cast<VstInt16>(background->getWidth())};
}

bool ADEditor::open(void* window) {
  if (frame != nullptr) close();  // opening twice would leave the first frame behind
  try {
    return openWindow(window);
  } catch (...) {
    ADEditor::close();  // memory ran out: half a window is none
    return false;
  }
}

bool ADEditor::openWindow(void* window) {
  AEffGUIEditor::open(window);
  if (!openFrame(window)) {
    AEffGUIEditor::close();
    return false;
  }
  view->setBackground(background);
  setKnobMode(VSTGUI::kLinearMode);
  changed = 0;
  addDisplays();
  addParameterControls();
  addAbout();
  CPresetSystemEditor::open(window);
  trelvan->setEditorOpen(true);
  return true;
}

void ADEditor::close() {
  endGestures();
  CPresetSystemEditor::close();
  trelvan->setEditorOpen(false);
  forgetControls();
  closeFrame();
}

// A control that is held by the mouse never hears of its release: the host would wait for the end of the gesture.
void ADEditor::endGestures() {
  // References, since the host may close once more when it is told.
  const std::initializer_list<VSTGUI::SharedPointer<VSTGUI::CControl>> controls = {
      VSTGUI::shared<VSTGUI::CControl>(depthSlider), VSTGUI::shared<VSTGUI::CControl>(freqSlider),
      VSTGUI::shared<VSTGUI::CControl>(emphSlider), VSTGUI::shared<VSTGUI::CControl>(switch3Button),
      VSTGUI::shared<VSTGUI::CControl>(switch4Button)};
  for (const auto& control : controls) {
    while (control && control->isEditing()) control->endEdit();
  }
}

void ADEditor::forgetControls() {
  depthSlider = freqSlider = emphSlider = nullptr;
  meter = nullptr;
  depthValueDisplay = freqValueDisplay = emphValueDisplay = nullptr;
  switch3Button = switch4Button = nullptr;
  about = nullptr;
}

// The frame's pass runs twice, once for each base. The meter's new value is drawn by the next pass.
void ADEditor::idle() {
  const std::uint32_t marked = changed.exchange(0);
  for (VstInt32 index = 0; index < kParameters; ++index) {
    if ((marked & (1U << index)) != 0) showParameter(index);
  }
  AEffGUIEditor::idle();
  CPresetSystemEditor::idle();
  const bool splashShown = about != nullptr && about->getValue() != 0.0F;
  const float reading = trelvan->getWidthMeter();
  const bool isNumber = reading == reading;  // a host that sends NaNs gets them back, but the meter waits for numbers
  if (!splashShown && isNumber) show(meter, 0.5F + reading);
}

void ADEditor::suspend() {
  show(meter, 0.5F);
}

void ADEditor::valueChanged(VSTGUI::CControl* control) {
  CPresetSystemEditor::valueChanged(control);
  const std::int32_t tag = control->getTag();
  if (tag < 0 || tag >= kParameters) return;
  trelvan->setParameterAutomated(tag, control->getValue());
  control->setDirty();
}

void ADEditor::setParameter(VstInt32 index, float /*value*/) {
  if (index >= 0 && index < kParameters) changed.fetch_or(1U << index, std::memory_order_relaxed);
}

// Values are read back from the effect: what it was told may have been overtaken.
void ADEditor::showParameter(VstInt32 index) {
  switch (index) {
    case 0:
      show(depthSlider, trelvan->getParameter(0));
      show(depthValueDisplay, trelvan->getParameter(0));
      break;
    case 1:
      show(freqSlider, trelvan->getParameter(1));
      show(freqValueDisplay, trelvan->getParameterValue(1));
      break;
    case 2:
      show(emphSlider, trelvan->getParameter(2));
      show(emphValueDisplay, trelvan->getParameterValue(2));
      break;
    case 3:
      show(switch3Button, switchPosition(trelvan->getParameter(3)));
      break;
    case 4:
      show(switch4Button, switchPosition(trelvan->getParameter(4)));
      show(depthValueDisplay, trelvan->getParameter(0));  // the sign of the side is part of its depth
      break;
    default:
      break;
  }
}
