// The panel with the text and its one button, as a modal view of the frame.
#include "editor/controls/messagepanel.h"

#include <cmath>
#include <vector>

#include "editor/base/keyboard.h"
#include "editor/controls/modalview.h"
#include "editor/controls/textwidth.h"
#include "editor/controls/windowcolors.h"
#include "editor/controls/wrappedtext.h"
#include "platform/validtext.h"

using VSTGUI::CColor;
using VSTGUI::CMouseEventResult;
using VSTGUI::CPoint;
using VSTGUI::CRect;
using VSTGUI::VirtualKey;

namespace {

constexpr CColor kText(0, 0, 0);
// Pixels.
constexpr double kOutside = 16;  // between the panel and the window's edge, left and right
constexpr double kInside = 12;   // between the panel's edge and what is in it
constexpr double kLine = 15;
constexpr double kButtonWidth = 48;
constexpr double kButtonHeight = 18;

VSTGUI::CFontRef textFont() {
  return VSTGUI::kNormalFontSmaller;
}

double widthOf(const std::string& text) {
  return textWidth(textFont(), text);
}

class MessagePanel final : public VSTGUI::CView {
 public:
  MessagePanel(const CRect& size, std::vector<std::string> shownLines)
      : CView(size), lines(std::move(shownLines)) {}

  void setSession(VSTGUI::ModalViewSessionID id) { session = id; }

  bool attached(CView* parent) override {
    if (!CView::attached(parent)) return false;
    hasKeyboard = isKeyboardWithHost(getFrame());
    if (hasKeyboard) takeKeyboard(getFrame(), true);
    return true;
  }

  bool removed(CView* parent) override {
    if (isAttached() && hasKeyboard) takeKeyboard(getFrame(), false);
    return CView::removed(parent);
  }

  void draw(VSTGUI::CDrawContext* context) override {
    context->setDrawMode(VSTGUI::kAliasing);
    context->setLineWidth(1);
    context->setFrameColor(kEdgeColor);
    context->setFillColor(kFieldColor);
    context->drawRect(getViewSize(), VSTGUI::kDrawFilledAndStroked);
    CRect line = getViewSize();
    line.inset(kInside, kInside);
    line.bottom = line.top + kLine;
    context->setFont(textFont());
    context->setFontColor(kText);
    for (const std::string& text : lines) {
      const VSTGUI::UTF8String shown(text);
      context->drawString(shown.getPlatformString(), line, VSTGUI::kCenterText, true);
      line.offset(0, kLine);
    }
    const CRect ok = button();
    context->setFillColor(kMarkColor);
    context->drawRect(ok, VSTGUI::kDrawFilled);
    context->setFontColor(VSTGUI::kWhiteCColor);
    context->drawString("OK", ok, VSTGUI::kCenterText, true);
    setDirty(false);
  }

  CMouseEventResult onMouseDown(CPoint& /*where*/, const VSTGUI::CButtonState& buttons) override {
    if (buttons & VSTGUI::kLButton) end();
    // the release goes nowhere
    return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
  }

  void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override { event.consumed = true; }

  // Those that mean nothing here are the host's.
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event) override {
    if (event.type != VSTGUI::EventType::KeyDown || !event.modifiers.empty()) return;
    const bool closes = event.virt == VirtualKey::Return || event.virt == VirtualKey::Enter ||
                        event.virt == VirtualKey::Escape;
    if (!closes) return;
    event.consumed = true;
    end();
  }

  CLASS_METHODS_NOCOPY(MessagePanel, CView)

 private:
  CRect button() const {
    const CRect& panel = getViewSize();
    CRect ok(0, 0, kButtonWidth, kButtonHeight);
    ok.offset(std::floor(panel.left + (panel.getWidth() - kButtonWidth) / 2),
              panel.bottom - kInside - kButtonHeight);
    return ok;
  }

  // After the event: the frame remembers the pressed view, and would remember a deleted one.
  // Without the memory for it the panel stays, and the next key or press ends it.
  void end() {
    if (getFrame() == nullptr) return;
    afterEvent(*getFrame(), [self = VSTGUI::shared(this)] {
      VSTGUI::CFrame* closing = self->getFrame();
      if (closing == nullptr) return;  // closed meanwhile
      closing->endModalViewSession(self->session);
      closing->invalid();
    });
  }

  std::vector<std::string> lines;
  VSTGUI::ModalViewSessionID session{};
  bool hasKeyboard = false;  // the user may be with another program when it comes up
};

}  // namespace

void showMessagePanel(VSTGUI::CFrame& frame, const std::string& text) {
  CRect window = frame.getViewSize();
  frame.getTransform().inverse().transform(window);  // zoom
  window.originize();
  const double width = window.getWidth() - 2 * kOutside;
  std::vector<std::string> lines = wrappedText(validText(text), width - 2 * kInside, widthOf);
  const double height =
      kInside + kLine * static_cast<double>(lines.size()) + kInside + kButtonHeight + kInside;
  CRect size(0, 0, width, height);
  size.offset(kOutside, std::floor((window.getHeight() - height) / 2));
  auto* panel = new MessagePanel(size, std::move(lines));
  if (const auto session = beginModalView(frame, panel)) panel->setSession(*session);
}
