// In-place text entry inside the toolkit's frame: a window of its own would need its own keyboard
// and focus.
#include "editor/controls/textentry.h"

#include "editor/base/keyboard.h"
#include "editor/controls/linux/pointergrab.h"
#include "editor/controls/linux/textfield.h"
#include "editor/controls/textentryowner.h"
#include "vstgui.h"

using VSTGUI::CRect;

namespace {

// pixels: the label draws that much further up, and the text must not jump
constexpr double kTextRise = 0.5;

// The place, which is the frame's, for a view in the container that the label is in.
CRect besideLabel(const VSTGUI::CParamDisplay& label, const TextEntryPlace& place) {
  VSTGUI::CPoint corner(place.x, place.y - kTextRise);
  label.frameToLocal(corner);
  return {corner, VSTGUI::CPoint(place.width, place.height)};
}

}  // namespace

struct TextEntry::System {
  System(TextEntryOwner* edited, const TextEntryPlace& place)
      : owner(edited),
        label(&edited->entryLabel()),
        field(VSTGUI::makeOwned<TextField>(edited, besideLabel(*label, place),
                                           [this](bool confirm) { end(confirm); })) {}
  ~System() { takeDown(); }
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  // Apart from the making, so that it is taken down where it breaks off.
  void show() {
    field->remember();  // the container lets go of it once
    label->getParentView()->asViewContainer()->addView(field);
    grabPointer(label->getFrame(), true);
    takeKeyboard(label->getFrame(), true);
  }

  void end(bool confirm) {
    if (!field) return;
    // First what takes memory: without it the entry goes on.
    if (confirm) owner->setText(field->text().c_str());
    takeDown();
    TextEntryOwner* edited = owner;  // whoever hears of the end may let go of this entry
    edited->endEditMode(confirm);
  }

  void takeDown() {
    if (!field) return;
    takeKeyboard(label->getFrame(), false);
    grabPointer(label->getFrame(), false);
    if (VSTGUI::CView* container = field->getParentView())
      container->asViewContainer()->removeView(field);
    field = nullptr;
  }

  TextEntryOwner* owner;
  VSTGUI::CParamDisplay* label;            // the owner's
  VSTGUI::SharedPointer<TextField> field;  // while the entry runs
};

TextEntry::TextEntry() = default;
TextEntry::~TextEntry() = default;

bool TextEntry::open(TextEntryOwner* owner, const TextEntryPlace& place) {
  if (owner->entryLabel().getFrame()->getPlatformFrame() == nullptr) return false;
  auto opening = std::make_unique<System>(owner, place);
  opening->show();
  system = std::move(opening);
  return true;
}

void TextEntry::end(bool confirm) {
  if (system) system->end(confirm);
}

void TextEntry::abandon() {
  system.reset();
}
