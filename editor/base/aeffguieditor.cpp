// Frame, keys, wheel, drawing and pacing of the editor base.
#include "editor/base/aeffguieditor.h"

#include <algorithm>
#include <new>

#include "editor/base/forgetlisteners.h"
#include "editor/base/myframe.h"
#include "editor/base/pacing.h"
#include "editor/base/screenscale.h"
#include "lib/events.h"
#include "plugin/audioeffectx.h"

namespace {

int knobMode = 0;  // one for all editors, as the host sets it; 0 circular

// The toolkit ends the process where memory runs out in its factory, which is noexcept: there has
// to be enough before. Throws where there is not.
void needMemory() {
  // bytes; a window with its pictures was seen to take one million, and takes nine times as many at
  // the pictures' largest scale
  constexpr std::size_t kEnough = 16U << 20U;
  void* volatile memory = ::operator new(kEnough);  // volatile, or the compiler leaves both out
  ::operator delete(memory);
}

VSTGUI::KeyboardEvent keyboardEvent(VSTGUI::EventType type, const VstKeyCode& key) {
  VSTGUI::KeyboardEvent event(type);
  event.character = static_cast<char32_t>(key.character);
  event.virt = VSTGUI::fromVstVirtualKey(key.virt);
  if ((key.modifier & MODIFIER_SHIFT) != 0) event.modifiers.add(VSTGUI::ModifierKey::Shift);
  if ((key.modifier & MODIFIER_ALTERNATE) != 0) event.modifiers.add(VSTGUI::ModifierKey::Alt);
  if ((key.modifier & MODIFIER_COMMAND) != 0) event.modifiers.add(VSTGUI::ModifierKey::Control);
  if ((key.modifier & MODIFIER_CONTROL) != 0) event.modifiers.add(VSTGUI::ModifierKey::Super);
  return event;
}

}  // namespace

AEffGUIEditor::AEffGUIEditor(AudioEffect* owner) : AEffEditor(owner), nextIdleTicks(getTicks()) {}

AEffGUIEditor::~AEffGUIEditor() = default;

// A size that could not be found out (its picture did not load: the process may have no file left
// to open) is asked for again.
void AEffGUIEditor::needToolkit() {
  if (unscaled.right != 0) return;
  needMemory();
  if (!toolkit) toolkit.emplace();
  unscaled = windowSize();
}

double AEffGUIEditor::scaleOfHost() const {
  if (effect == nullptr) return 0;
  float scale = 0.0F;  // and stays so where a host returns 1 to everything
  const VstIntPtr known = static_cast<AudioEffectX*>(effect)->hostVendorSpecific(
      effect->getAeffect()->uniqueID, kWindowScaleWanted, &scale, 0.0F);
  return known == 1 ? static_cast<double>(scale) : 0;
}

// Whole pixels: the last half of one is drawn as a whole, a last quarter not at all.
void AEffGUIEditor::scaleTo(double scale) {
  const auto scaled = [scale](VstInt16 size) { return static_cast<VstInt16>(size * scale + 0.5); };
  rect = {0, 0, scaled(unscaled.bottom), scaled(unscaled.right)};
}

bool AEffGUIEditor::getRect(ERect** out) {
  *out = nullptr;  // should the toolkit fail
  needToolkit();
  if (frame == nullptr) scaleTo(recentScreenScale(scaleOfHost()));
  *out = &rect;
  return true;
}

bool AEffGUIEditor::open(void* window) {
  needToolkit();
  return AEffEditor::open(window);
}

bool AEffGUIEditor::openFrame(void* window) {
  needToolkit();
  needMemory();
  const VSTGUI::CRect size(unscaled.left, unscaled.top, unscaled.right, unscaled.bottom);
  const auto made = VSTGUI::makeOwned<VSTGUI::CFrame>(size, this);
  auto* root = new MyFrame(size);
  made->addView(root);
  const double scale = screenScale(scaleOfHost());
  scaleTo(scale);
  if (scale != 1) {
    made->setZoom(scale);
    made->setSize(rect.right, rect.bottom);  // whole pixels
  }
  auto watching = std::make_unique<IdleWatch>(this);  // nothing may fail after the opening
  auto opening = std::make_unique<FrameWindow>();
  if (!opening->open(made, window)) return false;
  made->remember();  // the frame's own, which its close gives back
  frame = made;
  view = root;
  frameWindow = std::move(opening);
  idleWatch = std::move(watching);
  windowContract.opened();
  return true;
}

void AEffGUIEditor::closeFrame() {
  windowContract.ensure("close");
  windowContract.closed();
  if (frame != nullptr) forgetListeners(*frame);
  // What the pump still has for the window begins nothing: nobody would end it.
  if (view != nullptr) view->setMouseEnabled(false);
  frame = nullptr;
  view = nullptr;
  idleWatch.reset();
  frameWindow.reset();
}

// The window may be closed from inside the pump, by a control's callback.
void AEffGUIEditor::idle() {
  if (idleWatch) idleWatch->idled();
  if (inHostIdle || frame == nullptr) return;
  windowContract.ensure("idle");
  frameWindow->pump();
  if (frame == nullptr) return;
  if (frameWindow->keyboardLost()) frameWindow->during([this] { keyboardLeft(); });
  if (view != nullptr) view->idle();
}

bool AEffGUIEditor::dispatch(VSTGUI::Event& event) {
  windowContract.ensure("a key or the wheel");
  frameWindow->during([target = frame, &event] { target->dispatchEvent(event); });
  return static_cast<bool>(event.consumed);
}

bool AEffGUIEditor::onKeyDown(VstKeyCode& key) {
  if (frame == nullptr || !takesInput()) return false;
  VSTGUI::KeyboardEvent event = keyboardEvent(VSTGUI::EventType::KeyDown, key);
  return dispatch(event);
}

bool AEffGUIEditor::onKeyUp(VstKeyCode& key) {
  if (frame == nullptr) return false;
  VSTGUI::KeyboardEvent event = keyboardEvent(VSTGUI::EventType::KeyUp, key);
  return dispatch(event);
}

bool AEffGUIEditor::onWheel(float distance) {
  if (frame == nullptr || !takesInput()) return false;
  VSTGUI::MouseWheelEvent event;
  VSTGUI::CPoint where(0, 0);
  frame->getCurrentMouseLocation(where);
  // An event's place is the screen's, and the toolkit zooms this one instead of leaving it so.
  event.mousePosition = frame->getTransform().inverse().transform(where);
  event.deltaY = static_cast<double>(distance);
  return dispatch(event);
}

bool AEffGUIEditor::setKnobMode(int mode) {
  knobMode = mode;
  return true;
}

std::int32_t AEffGUIEditor::getKnobMode() const {
  return knobMode;
}

void AEffGUIEditor::draw(ERect* area) {
  if (frame == nullptr) return;
  VSTGUI::CRect dirty = frame->getViewSize();
  if (area != nullptr) {
    dirty = VSTGUI::CRect(std::min(area->left, area->right), std::min(area->top, area->bottom),
                          std::max(area->left, area->right), std::max(area->top, area->bottom));
  }
  frame->invalidRect(frame->getTransform().inverse().transform(dirty));
}

// A pass at most every 50 to 100 ms while a control keeps the mouse.
void AEffGUIEditor::doIdleStuff() {
  // ms given to the event loop before a pass that is not due
  constexpr std::uint32_t kEventTime = 4;
  constexpr std::uint32_t kEarly = 50;      // ms before its time that a pass is let through
  constexpr std::uint32_t kInterval = 100;  // ms from one pass to the next
  std::uint32_t now = getTicks();
  if (now < nextIdleTicks) {
    wait(kEventTime);
    now += kEventTime;
    if (now < nextIdleTicks - kEarly) return;
  }
  idle();
  nextIdleTicks = now + kInterval;
  inHostIdle = true;
  if (effect != nullptr) effect->masterIdle();
  inHostIdle = false;
}

bool AEffGUIEditor::isHostParameter(std::int32_t index) const {
  return effect != nullptr && index >= 0 && index < effect->getAeffect()->numParams;
}

void AEffGUIEditor::beginEdit(std::int32_t index) {
  if (isHostParameter(index)) static_cast<AudioEffectX*>(effect)->beginEdit(index);
}

void AEffGUIEditor::endEdit(std::int32_t index) {
  if (isHostParameter(index)) static_cast<AudioEffectX*>(effect)->endEdit(index);
}

std::uint32_t AEffGUIEditor::getTicks() {
  return ticksToMilliseconds(platformTickCount());
}

void AEffGUIEditor::wait(std::uint32_t ms) {
  platformRunEventLoop(ms * 0.001);
}
