// Fuzz target: the name's entry, with a name of any bytes, under keys, mouse and drawing, in a
// frame without a window.
#include "editor/controls/linux/textfield.h"

#include <optional>

#include "editor/base/toolkitlibrary.h"
#include "editor/controls/corvtextedit.h"
#include "fuzz/inputreader.h"
#include "fuzz/require.h"
#include "fuzz/typedtext.h"
#include "lib/events.h"
#include "platform/validtext.h"
#include "vstgui.h"

namespace {

using fuzz::InputReader;
using fuzz::TypedText;
using VSTGUI::CRect;
using VSTGUI::VirtualKey;

const CRect kLabel(40, 20, 160, 40);
constexpr unsigned kKeys = static_cast<unsigned>(VirtualKey::Equals) + 1;
constexpr int kMostEvents = 200;  // of one input

class Entry {
 public:
  explicit Entry(const std::string& name)
      : frame(new VSTGUI::CFrame(CRect(0, 0, 200, 60), nullptr)),
        label(new COrvTextEdit(kLabel, nullptr, 0, "", nullptr, 0, false)),
        model(fuzz::charactersOf(validText(name))) {
    frame->addView(label);
    frame->attached(frame);
    label->setText(name.c_str());
    field = VSTGUI::makeOwned<TextField>(label, kLabel, [this](bool confirm) { ended = confirm; });
    field->remember();  // the frame's, which lets go of it once
    frame->addView(field);
    require(field->isAttached(), "the field is in the frame");
  }
  ~Entry() {
    frame->removeView(field);
    field = nullptr;
    frame->close();
  }
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

  bool isOver() const { return ended.has_value(); }

  void event(InputReader& input) {
    const unsigned kind = input.below(8);
    if (kind == 7) {
      draw();
    } else if (kind == 6) {
      mouse(input);
    } else {
      key(input, kind);
    }
    requireText();
  }

  void draw() {
    const auto context = VSTGUI::COffscreenContext::create(frame->getViewSize().getSize());
    context->beginDraw();
    frame->drawRect(context, frame->getViewSize());
    context->endDraw();
  }

 private:
  // 0 to 2: a character of one, two or four bytes' choice; 3: a named key; else both, or its end.
  void key(InputReader& input, unsigned kind) {
    VSTGUI::KeyboardEvent event(kind == 5 ? VSTGUI::EventType::KeyUp : VSTGUI::EventType::KeyDown);
    if (kind == 0) event.character = input.byte();
    if (kind == 1) event.character = input.byte() | input.byte() << 8U;
    if (kind == 2 || kind == 4) event.character = static_cast<char32_t>(input.word());
    if (kind >= 3) event.virt = static_cast<VirtualKey>(input.byte() % kKeys);
    const unsigned modifiers = kind >= 3 ? input.byte() : 0;
    const bool shift = (modifiers & 1U) != 0;
    const bool control = (modifiers & 2U) != 0;
    if (shift) event.modifiers.add(VSTGUI::ModifierKey::Shift);
    if (control) event.modifiers.add(VSTGUI::ModifierKey::Control);
    frame->dispatchEvent(event);
    require(static_cast<bool>(event.consumed), "no key goes past the entry");
    if (kind == 5) return;
    expectKey(event, shift, control);
  }

  void expectKey(const VSTGUI::KeyboardEvent& event, bool shift, bool control) {
    const bool isModifier = event.virt == VirtualKey::ShiftModifier ||
                            event.virt == VirtualKey::ControlModifier ||
                            event.virt == VirtualKey::AltModifier;
    const bool confirms = (control && !isModifier) || event.virt == VirtualKey::Return ||
                          event.virt == VirtualKey::Enter;
    if (confirms || event.virt == VirtualKey::Escape)
      return require(ended == confirms, "the key ends the entry");
    require(!isOver(), "the entry goes on");
    switch (event.virt) {
      case VirtualKey::Back:
        return model.erase(false);
      case VirtualKey::Delete:
        return model.erase(true);
      case VirtualKey::Left:
        return model.step(false, shift);
      case VirtualKey::Right:
        return model.step(true, shift);
      case VirtualKey::Home:
        // with the end fixed where the mouse has put it nothing is known
        if (!shift) placeKnown();
        return model.jump(0, shift);
      case VirtualKey::End:
        if (!shift) placeKnown();
        return model.jump(model.characters.size(), shift);
      default:
        if (const char32_t character = typedBy(event); character != 0) model.type(character);
    }
  }

  // 0: nothing.
  static char32_t typedBy(const VSTGUI::KeyboardEvent& event) {
    const char32_t character = event.character;
    if (character != 0) {
      const bool isText = character < 0x110000 && !(character >= 0xD800 && character < 0xE000);
      const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
      return isText && !isControl ? character : 0;
    }
    switch (event.virt) {
      case VirtualKey::Space:
        return ' ';
      case VirtualKey::Multiply:
        return '*';
      case VirtualKey::Add:
        return '+';
      case VirtualKey::Subtract:
        return '-';
      case VirtualKey::Decimal:
        return '.';
      case VirtualKey::Separator:
        return ',';
      case VirtualKey::Divide:
        return '/';
      default:
        return 0;
    }
  }

  void mouse(InputReader& input) {
    const unsigned kind = input.byte();
    const VSTGUI::CPoint where(input.byte(), 30);  // from left of the label to right of it
    const auto button = (kind & 4U) != 0 ? VSTGUI::MouseButton::Right : VSTGUI::MouseButton::Left;
    if (kind % 3 == 0) {
      VSTGUI::MouseDownEvent event(where, button);
      if ((kind & 8U) != 0) event.modifiers.add(VSTGUI::ModifierKey::Shift);
      frame->dispatchEvent(event);
      const bool inside = kLabel.pointInside(where);
      require(inside ? !isOver() : ended == true, "a press elsewhere confirms");
    } else if (kind % 3 == 1) {
      VSTGUI::MouseMoveEvent event(where, button);
      frame->dispatchEvent(event);
    } else {
      VSTGUI::MouseUpEvent event(where, button);
      frame->dispatchEvent(event);
    }
    isKnown = false;  // where the caret is, until Home or End
  }

  void placeKnown() {
    if (isKnown) return;
    isKnown = true;
    model = TypedText(fuzz::charactersOf(field->text()));
  }

  void requireText() {
    const std::string& text = field->text();
    require(validText(text) == text, "the text is UTF-8");
    require(!isKnown || text == fuzz::utf8Of(model.characters), "the text is what was typed");
  }

  VSTGUI::CFrame* frame;
  COrvTextEdit* label;  // the frame's
  VSTGUI::SharedPointer<TextField> field;
  TypedText model;
  bool isKnown = true;  // where the model's caret is
  std::optional<bool> ended;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ToolkitLibrary kept;  // set up once
  InputReader input(data, size);
  std::string name = input.text();
  name = name.substr(0, name.find('\0'));  // of a C string
  Entry entry(name);
  for (int events = 0; events < kMostEvents && !input.empty() && !entry.isOver(); ++events)
    entry.event(input);
  entry.draw();
  return 0;
}
