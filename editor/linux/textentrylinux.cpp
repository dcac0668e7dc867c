// In-place text entry inside the toolkit's frame: a window of its own would need its own keyboard and focus.
#include <functional>

#include "editor/corvtextedit.h"
#include "editor/textentry.h"
#include "lib/events.h"
#include "lib/platform/common/genericoptionmenu.h"
#include "lib/platform/iplatformframe.h"
#include "lib/platform/iplatformtextedit.h"
#include "platform/validtext.h"

using VSTGUI::CFrame;
using VSTGUI::CRect;
using VSTGUI::VirtualKey;

namespace {

constexpr double kTextRise = 0.5;  // pixels: the label draws that much further up, and the text must not jump

bool isModifierKey(VirtualKey key) {
  return key == VirtualKey::ShiftModifier || key == VirtualKey::ControlModifier || key == VirtualKey::AltModifier;
}

// Keeps the window's other views from keys, and ends the entry on a press elsewhere.
class EntryGuard final : public VSTGUI::IKeyboardHook, public VSTGUI::IMouseObserver {
 public:
  EntryGuard(COrvTextEdit* edited, std::function<void()> elsewhere)
      : label(edited), pressedElsewhere(std::move(elsewhere)) {}

  void onKeyboardEvent(VSTGUI::KeyboardEvent& event, CFrame*) override { event.consumed = true; }

  void onMouseEvent(VSTGUI::MouseEvent& event, CFrame*) override {
    if (event.type != VSTGUI::EventType::MouseDown) return;
    VSTGUI::CPoint where = event.mousePosition;
    label->frameToLocal(where);
    if (label->getViewSize().pointInside(where)) return;
    event.consumed = true;
    pressedElsewhere();
  }
  void onMouseEntered(VSTGUI::CView*, CFrame*) override {}
  void onMouseExited(VSTGUI::CView*, CFrame*) override {}

 private:
  COrvTextEdit* label;
  std::function<void()> pressedElsewhere;
};

// What the toolkit's field asks. The field takes it for a view, and puts itself beside it.
class FieldOwner final : public VSTGUI::CView, public VSTGUI::IPlatformTextEditCallback {
 public:
  FieldOwner(COrvTextEdit* edited, const TextEntryPlace& place)
      : CView(CRect(VSTGUI::CPoint(place.x, place.y - kTextRise), VSTGUI::CPoint(place.width, place.height))),
        label(edited),
        frame(edited->getFrame()),
        oldFocusColor(frame->getFocusColor()),
        guard(edited, [this] { end(true); }),
        textAtFirst(validText(edited->getText().getString())) {}

  bool open() {
    if (frame->getPlatformFrame() == nullptr) return false;
    // Before the field is made: hooks are asked newest first, and this one takes what the field leaves over.
    frame->registerKeyboardHook(&guard);
    frame->registerMouseObserver(&guard);
    if (label->highlightColor().set) frame->setFocusColor(label->highlightColor().color);  // the selection's background
    running = true;
    attached(label->getParentView());  // without being drawn or asked for the mouse as one of its children
    field = frame->getPlatformFrame()->createPlatformTextEdit(this);
    if (!field) {
      takeDown();
      return false;
    }
    grabPointer(true);
    return true;
  }

  void end(bool confirm) {
    if (!running) return;
    const VSTGUI::UTF8String text = field->getText();
    takeDown();
    if (confirm) label->setText(text.data());
    label->endEditMode(confirm);
  }

  VSTGUI::CColor platformGetBackColor() const override { return label->getBackColor(); }
  VSTGUI::CColor platformGetFontColor() const override {
    return label->fontEditionColor().set ? label->fontEditionColor().color : label->getFontColor();
  }
  VSTGUI::CFontRef platformGetFont() const override { return label->getFont(); }
  VSTGUI::CHoriTxtAlign platformGetHoriTxtAlign() const override { return VSTGUI::kCenterText; }
  const VSTGUI::UTF8String& platformGetText() const override { return textAtFirst; }
  const VSTGUI::UTF8String& platformGetPlaceholderText() const override { return nothing; }
  CRect platformGetSize() const override { return translateToGlobal(getViewSize()); }
  CRect platformGetVisibleSize() const override { return translateToGlobal(getViewSize()); }
  VSTGUI::CPoint platformGetTextInset() const override { return {}; }
  void platformLooseFocus(bool /*returnPressed*/) override { end(true); }
  void platformTextDidChange() override {}
  bool platformIsSecureTextEdit() override { return false; }

  // Asked first. A shortcut confirms instead of acting.
  void platformOnKeyboardEvent(VSTGUI::KeyboardEvent& event) override {
    if (event.type != VSTGUI::EventType::KeyDown) return;
    const bool confirms = event.virt == VirtualKey::Return || event.virt == VirtualKey::Enter ||
                          (event.modifiers.has(VSTGUI::ModifierKey::Control) && !isModifierKey(event.virt));
    if (!confirms && event.virt != VirtualKey::Escape) return;
    event.consumed = true;
    end(confirms);
  }

  void takeDown() {
    if (!running) return;
    running = false;
    grabPointer(false);
    frame->unregisterMouseObserver(&guard);
    frame->unregisterKeyboardHook(&guard);
    frame->setFocusColor(oldFocusColor);
    field = nullptr;
    removed(getParentView());
  }

  CLASS_METHODS_NOCOPY(FieldOwner, CView)

 private:
  // So that a click outside the window, in the host's own area, is seen here too.
  void grabPointer(bool grab) {
    auto* grabber = dynamic_cast<VSTGUI::IGenericOptionMenuListener*>(frame->getPlatformFrame());
    if (grabber == nullptr) return;
    if (grab) {
      grabber->optionMenuPopupStarted();
    } else {
      grabber->optionMenuPopupStopped();
    }
  }

  COrvTextEdit* label;
  CFrame* frame;
  VSTGUI::CColor oldFocusColor;
  EntryGuard guard;
  VSTGUI::UTF8String textAtFirst, nothing;
  VSTGUI::SharedPointer<VSTGUI::IPlatformTextEdit> field;
  bool running = false;
};

class TextEntryLinux final : public TextEntry {
 public:
  explicit TextEntryLinux(FieldOwner* made) : owner(VSTGUI::owned(made)) {}
  ~TextEntryLinux() override { owner->takeDown(); }
  TextEntryLinux(const TextEntryLinux&) = delete;
  TextEntryLinux& operator=(const TextEntryLinux&) = delete;

  bool open() { return owner->open(); }
  void end(bool confirm) override { owner->end(confirm); }

 private:
  VSTGUI::SharedPointer<FieldOwner> owner;
};

}  // namespace

std::unique_ptr<TextEntry> openTextEntry(COrvTextEdit* label, const TextEntryPlace& place) {
  auto entry = std::make_unique<TextEntryLinux>(new FieldOwner(label, place));
  if (!entry->open()) return nullptr;
  return entry;
}
