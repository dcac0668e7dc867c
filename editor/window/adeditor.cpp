// The window's life, and parameter values on their way in and out of it.
#include "editor/window/adeditor.h"

#include "editor/base/myframe.h"
#include "editor/base/sharedbitmaps.h"
#include "editor/controls/cabout.h"
#include "editor/controls/cparameterslider.h"
#include "editor/controls/cvaluedisplay.h"
#include "editor/controls/cvumeter1.h"
#include "editor/controls/typedvalue.h"
#include "effect/trelvan.h"
#include "platform/defaultfloats.h"
#include "plugin/createeditor.h"

namespace {

constexpr std::int32_t kBackgroundBitmap = 128;
// Shows through the panel's last pixels where its scale cuts them in half.
constexpr VSTGUI::CColor kPanel(210, 221, 229);

void show(VSTGUI::CControl* control, float value) {
  if (control != nullptr) control->setValue(value);
}

float switchPosition(float raw) {  // a NaN is off
  return raw >= 0.5F ? 1.0F : 0.0F;
}

}  // namespace

AEffEditor* createEditor(AudioEffect* effect) {
  return new ADEditor(static_cast<Trelvan*>(effect));
}

ADEditor::ADEditor(Trelvan* owner) : CPresetSystemEditor(owner), trelvan(owner) {}

ADEditor::~ADEditor() {
  if (frame != nullptr) ADEditor::close();
}

ERect ADEditor::windowSize() {
  const auto picture = sharedBitmap(kBackgroundBitmap);
  return {0, 0, static_cast<VstInt16>(picture->getHeight()),
          static_cast<VstInt16>(picture->getWidth())};
}

bool ADEditor::isAtRest() const {
  for (const ParameterViews& each : views) {
    if (each.display != nullptr && each.display->isBeingEdited()) return false;
  }
  return CPresetSystemEditor::isAtRest();
}

bool ADEditor::open(void* window) {
  if (frame != nullptr) close();  // opening twice would lose the first frame
  const MissingBitmaps missing;
  try {
    if (openWindow(window) && !missing.any()) return true;
  } catch (...) {  // memory ran out
  }
  ADEditor::close();  // half a window is none
  return false;
}

bool ADEditor::openWindow(void* window) {
  AEffGUIEditor::open(window);
  if (!openFrame(window)) return false;
  background = sharedBitmap(kBackgroundBitmap);
  view->setBackground(background);
  frame->setBackgroundColor(kPanel);
  setKnobMode(VSTGUI::kLinearMode);
  changed = 0;
  addCaptions();
  addMeter();
  addParameterControls();
  addAbout();
  CPresetSystemEditor::open(window);
  loadSharedBitmapsFor(frame->getZoom());
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

// A control that is held by the mouse never hears of its release: the host would wait for the end
// of the gesture.
void ADEditor::endGestures() {
  for (std::size_t slot = 0; slot < views.size(); ++slot) {
    // A reference, since the host may close once more when it is told.
    const auto control = VSTGUI::shared<VSTGUI::CControl>(views[slot].control);
    while (control && control->isEditing()) control->endEdit();
  }
}

void ADEditor::forgetControls() {
  views = {};
  meter = nullptr;
  about = nullptr;
  background = nullptr;
}

// The frame's pass runs twice, once for each base. The meter's new value is drawn by the next pass.
void ADEditor::idle() {
  const std::uint32_t marked = changed.exchange(0);
  for (VstInt32 index = 0; index < kParameterCount; ++index) {
    if ((marked & (1U << index)) != 0) showParameter(index);
  }
  AEffGUIEditor::idle();
  CPresetSystemEditor::idle();
  sendMotions();
  const bool splashShown = about != nullptr && about->getValue() != 0.0F;
  const float reading = trelvan->getWidthMeter();
  // a host that sends NaNs gets them back, but the meter waits for numbers
  const bool isNumber = reading == reading;
  if (!splashShown && isNumber) show(meter, 0.5F + reading);
}

// Once a pass, however many motions it has had. A host may close the window when it is told.
void ADEditor::sendMotions() {
  for (std::size_t slot = 0; slot < views.size(); ++slot) {
    if (const auto slider = VSTGUI::shared(views[slot].slider)) slider->sendMotion();
  }
}

void ADEditor::keyboardLeft() {
  CPresetSystemEditor::keyboardLeft();
  for (std::size_t slot = 0; slot < views.size(); ++slot) {
    if (const auto display = VSTGUI::shared(views[slot].display)) display->endEntry(true);
  }
}

void ADEditor::takeTyped(VstInt32 index, const std::string& text) {
  CParameterSlider* slider = views[static_cast<std::size_t>(index)].slider;
  const auto typed = typedValue(parameterAt(index), text);
  if (typed && slider != nullptr) slider->setInOneGesture(*typed);
}

void ADEditor::suspend() {
  show(meter, 0.5F);
}

void ADEditor::valueChanged(VSTGUI::CControl* control) {
  CPresetSystemEditor::valueChanged(control);
  const std::int32_t tag = control->getTag();
  if (!isParameter(tag)) return;
  trelvan->setParameterAutomated(tag, control->getValue());
  control->setDirty();
}

void ADEditor::setParameter(VstInt32 index, float /*value*/) {
  // In order: the idle pass that finds the mark must find the value that was set before it.
  if (isParameter(index)) changed.fetch_or(1U << index);
}

// Values are read back from the effect: what it was told may have been overtaken.
void ADEditor::showParameter(VstInt32 index) {
  windowContract.ensure("a parameter's control");
  const float raw = trelvan->getParameter(index);
  const bool isSwitch = parameterAt(index).unit == Parameter::Unit::onOff;
  show(views[static_cast<std::size_t>(index)].control, isSwitch ? switchPosition(raw) : raw);
  showValue(index);
  if (index == kPhaseIndex) showValue(kWidthIndex);  // the sign of the side is part of its depth
}

void ADEditor::showValue(VstInt32 index) {
  const DefaultFloats floats;  // a frequency a little lower would be cut to another text
  const Parameter& parameter = parameterAt(index);
  const float raw = floats.of(trelvan->getParameter(index));
  show(views[static_cast<std::size_t>(index)].display,
       parameter.unit == Parameter::Unit::hertz ? parameter.derived(raw) : raw);
}
