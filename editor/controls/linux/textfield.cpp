// Draws the text as its label does, with selection and caret, and edits it by keys and mouse.
#include "editor/controls/linux/textfield.h"

#include <glib.h>

#include <cmath>
#include <new>
#include <utility>

#include "editor/controls/textwidth.h"
#include "lib/cvstguitimer.h"
#include "lib/events.h"
#include "platform/validtext.h"

using VSTGUI::CCoord;
using VSTGUI::CRect;
using VSTGUI::UTF8String;
using VSTGUI::VirtualKey;

namespace {

constexpr std::uint32_t kBlink = 500;  // ms lit, and as long not

bool isModifierKey(VirtualKey key) {
  return key == VirtualKey::ShiftModifier || key == VirtualKey::ControlModifier ||
         key == VirtualKey::AltModifier;
}

// The toolkit's lists of hooks and observers take nobody in any more when an exception has gone
// through them: without memory the key or click is lost, and not the keyboard.
template <typename Work>
void contain(const Work& work) {
  try {
    work();
  } catch (const std::bad_alloc&) {
  }
}

// Keys that the toolkit names and that stand for a character all the same.
const char* characterOf(VirtualKey key) {
  switch (key) {
    case VirtualKey::Space:
      return " ";
    case VirtualKey::Multiply:
      return "*";
    case VirtualKey::Add:
      return "+";
    case VirtualKey::Subtract:
      return "-";
    case VirtualKey::Decimal:
      return ".";
    case VirtualKey::Separator:  // the decimal comma of many keyboards
      return ",";
    case VirtualKey::Divide:
      return "/";
    default:
      return "";
  }
}

// What a key types, in UTF-8; empty where it types nothing.
std::string typedText(const VSTGUI::KeyboardEvent& event) {
  if (event.character == 0) return characterOf(event.virt);
  if (!g_unichar_validate(event.character) || g_unichar_iscntrl(event.character)) return {};
  char bytes[6];  // as many as the conversion may write
  return {bytes, static_cast<std::size_t>(g_unichar_to_utf8(event.character, bytes))};
}

}  // namespace

TextField::TextField(TextEntryOwner* edited, const CRect& place,
                     std::function<void(bool)> whenEnded)
    : CView(place),
      label(&edited->entryLabel()),
      colors(&edited->entryColors()),
      edit(validText(edited->entryText())),
      ended(std::move(whenEnded)) {}

bool TextField::attached(CView* parent) {
  if (!CView::attached(parent)) return false;
  getFrame()->registerKeyboardHook(this);
  getFrame()->registerMouseObserver(this);
  getFrame()->registerViewEventListener(this);
  blinking = VSTGUI::makeOwned<VSTGUI::CVSTGUITimer>(
      [this](VSTGUI::CVSTGUITimer*) {
        caretLit = !caretLit;
        if (!edit.hasSelection()) invalid();
      },
      kBlink);
  return true;
}

bool TextField::removed(CView* parent) {
  blinking = nullptr;
  if (VSTGUI::CFrame* frame = getFrame()) {
    frame->setCursor(VSTGUI::kCursorDefault);
    frame->unregisterViewEventListener(this);
    frame->unregisterMouseObserver(this);
    frame->unregisterKeyboardHook(this);
  }
  return CView::removed(parent);
}

double TextField::widthOf(std::size_t bytes) const {
  return textWidth(label->getFont(), edit.text().substr(0, bytes));
}

// Aligned like the label; a text that is wider moves until its caret can be seen.
double TextField::textLeft() const {
  const CRect& area = getViewSize();
  double left = area.left;
  if (label->getHoriAlign() == VSTGUI::kCenterText)
    left += (area.getWidth() - widthOf(edit.text().size())) / 2.;
  const double caret = left + widthOf(edit.caret());
  if (caret < area.left) left += area.left - caret;
  if (caret > area.right - 1.) left -= caret - (area.right - 1.);  // the caret is a pixel wide
  return left;
}

std::size_t TextField::placeAt(CCoord x) const {
  const double left = textLeft();
  std::size_t nearest = 0;
  for (std::size_t place = 0; place < edit.text().size();) {
    place = edit.after(place);
    if (std::fabs(left + widthOf(place) - x) > std::fabs(left + widthOf(nearest) - x)) break;
    nearest = place;
  }
  return nearest;
}

void TextField::draw(VSTGUI::CDrawContext* context) {
  const CRect& area = getViewSize();
  const double left = textLeft();
  const VSTGUI::CColor colour = colors->fontEdition.orElse(label->getFontColor());
  const UTF8String text(edit.text());
  const auto write = [&](const VSTGUI::CColor& in) {
    context->setFontColor(in);
    context->drawString(text.getPlatformString(),
                        CRect(left, area.top, left + widthOf(edit.text().size()), area.bottom),
                        VSTGUI::kLeftText, true);
  };
  const VSTGUI::ConcatClip inside(*context, area);
  context->setDrawMode(VSTGUI::kAntiAliasing);
  context->setFont(label->getFont());
  write(colour);
  if (edit.hasSelection()) {
    const CRect selection(left + widthOf(edit.selectionBegin()), area.top,
                          left + widthOf(edit.selectionEnd()), area.bottom);
    const VSTGUI::ConcatClip selected(*context, selection);
    context->setFillColor(colors->highlight.orElse(getFrame()->getFocusColor()));
    context->drawRect(selection, VSTGUI::kDrawFilled);
    write(colors->fontHighlighted.orElse(colour));
  } else if (caretLit) {
    const double x = std::round(left + widthOf(edit.caret()));
    context->setFillColor(colors->caret.orElse(colour));
    context->drawRect(CRect(x, area.top, x + 1., area.bottom), VSTGUI::kDrawFilled);
  }
  setDirty(false);
}

void TextField::changed() {
  caretLit = true;
  invalid();
}

void TextField::onKeyboardEvent(VSTGUI::KeyboardEvent& event, VSTGUI::CFrame* /*frame*/) {
  event.consumed = true;  // of both kinds: nothing else may act on them
  if (event.type != VSTGUI::EventType::KeyDown) return;
  const auto self = VSTGUI::shared(this);  // ending takes the field away
  contain([&] { pressKey(event); });
}

// A shortcut confirms instead of acting.
void TextField::pressKey(const VSTGUI::KeyboardEvent& event) {
  const bool extend = event.modifiers.has(VSTGUI::ModifierKey::Shift);
  if (event.modifiers.has(VSTGUI::ModifierKey::Control) && !isModifierKey(event.virt))
    return ended(true);
  switch (event.virt) {
    case VirtualKey::Return:
    case VirtualKey::Enter:
      return ended(true);
    case VirtualKey::Escape:
      return ended(false);
    case VirtualKey::Back:
      edit.eraseBack();
      break;
    case VirtualKey::Delete:
      edit.eraseForward();
      break;
    case VirtualKey::Left:
      edit.moveBack(extend);
      break;
    case VirtualKey::Right:
      edit.moveForward(extend);
      break;
    case VirtualKey::Home:
      edit.moveTo(0, extend);
      break;
    case VirtualKey::End:
      edit.moveTo(edit.text().size(), extend);
      break;
    default: {
      const std::string typed = typedText(event);
      if (typed.empty()) return;
      edit.insert(typed);
    }
  }
  changed();
}

void TextField::onMouseEvent(VSTGUI::MouseEvent& event, VSTGUI::CFrame* /*frame*/) {
  VSTGUI::CPoint where = event.mousePosition;
  frameToLocal(where);
  if (event.type == VSTGUI::EventType::MouseDown) {
    event.consumed = true;
    if (label->getViewSize().pointInside(where)) return press(event, where);
    const auto self = VSTGUI::shared(this);
    contain([this] { ended(true); });
  } else if (selecting) {
    event.consumed = true;
    selecting = event.type == VSTGUI::EventType::MouseMove && event.buttonState.isLeft();
    if (!selecting) return;
    edit.moveTo(placeAt(where.x), true);
    changed();
  }
}

void TextField::press(const VSTGUI::MouseEvent& event, const VSTGUI::CPoint& where) {
  if (!event.buttonState.isLeft()) return;
  selecting = !doubleClick.press(where);
  if (selecting) {
    edit.moveTo(placeAt(where.x), event.modifiers.has(VSTGUI::ModifierKey::Shift));
  } else {
    edit.selectAll();
  }
  changed();
}

void TextField::onMouseEntered(CView* view, VSTGUI::CFrame* frame) {
  if (view == this) frame->setCursor(VSTGUI::kCursorIBeam);
}

void TextField::onMouseExited(CView* view, VSTGUI::CFrame* frame) {
  if (view == this) frame->setCursor(VSTGUI::kCursorDefault);
}

void TextField::viewOnEvent(CView* /*view*/, VSTGUI::Event& event) {
  if (event.type == VSTGUI::EventType::MouseWheel) event.consumed = true;
}
