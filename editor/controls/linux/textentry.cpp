// In-place text entry inside the toolkit's frame: a window of its own would need its own keyboard and focus.
#include "editor/controls/textentry.h"
#include "editor/controls/corvtextedit.h"
#include "editor/controls/linux/pointergrab.h"
#include "editor/controls/linux/textfield.h"

using VSTGUI::CRect;

namespace {

constexpr double kTextRise = 0.5;  // pixels: the label draws that much further up, and the text must not jump

// The place, which is the frame's, for a view in the container that the label is in.
CRect besideLabel(const COrvTextEdit* label, const TextEntryPlace& place) {
  VSTGUI::CPoint corner(place.x, place.y - kTextRise);
  label->frameToLocal(corner);
  return {corner, VSTGUI::CPoint(place.width, place.height)};
}

class TextEntryLinux final : public TextEntry {
 public:
  TextEntryLinux(COrvTextEdit* edited, const TextEntryPlace& place)
      : label(edited),
        field(
            VSTGUI::makeOwned<TextField>(edited, besideLabel(edited, place), [this](bool confirm) { end(confirm); })) {
    field->remember();  // the container lets go of it once
    label->getParentView()->asViewContainer()->addView(field);
    grabPointer(label->getFrame(), true);
  }
  ~TextEntryLinux() override { takeDown(); }
  TextEntryLinux(const TextEntryLinux&) = delete;
  TextEntryLinux& operator=(const TextEntryLinux&) = delete;

  void end(bool confirm) override {
    if (!field) return;
    const std::string text = field->text();
    takeDown();
    COrvTextEdit* edited = label;  // whoever hears of the end may let go of this entry
    if (confirm) edited->setText(text.c_str());
    edited->endEditMode(confirm);
  }

 private:
  void takeDown() {
    if (!field) return;
    grabPointer(label->getFrame(), false);
    if (VSTGUI::CView* container = field->getParentView()) container->asViewContainer()->removeView(field);
    field = nullptr;
  }

  COrvTextEdit* label;
  VSTGUI::SharedPointer<TextField> field;  // while the entry runs
};

}  // namespace

std::unique_ptr<TextEntry> openTextEntry(COrvTextEdit* label, const TextEntryPlace& place) {
  if (label->getFrame()->getPlatformFrame() == nullptr) return nullptr;
  return std::make_unique<TextEntryLinux>(label, place);
}
