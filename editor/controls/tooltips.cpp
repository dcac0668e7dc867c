// Waits for the pointer to rest, and draws the text.
#include "editor/controls/tooltips.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <sstream>
#include <vector>

#include "editor/controls/textwidth.h"
#include "editor/controls/windowcolors.h"
#include "lib/events.h"

using VSTGUI::CColor;
using VSTGUI::CPoint;
using VSTGUI::CRect;
using VSTGUI::EventType;

namespace {

constexpr std::uint64_t kRest = 700;  // ms
constexpr CColor kPaper(252, 252, 250);
constexpr CColor kInk(39, 40, 45);
// Pixels.
constexpr double kLine = 13;
constexpr double kMarginX = 6;  // left and right of the text
constexpr double kMarginY = 3;  // above and below it
constexpr double kGap = 3;      // to the control
constexpr double kOutside = 2;  // to the window's edge

VSTGUI::CFontRef textFont() {
  return VSTGUI::kNormalFontSmaller;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

class Tooltip final : public VSTGUI::CView {
 public:
  Tooltip(const CRect& size, std::vector<std::string> shownLines)
      : CView(size), lines(std::move(shownLines)) {
    setMouseEnabled(false);
  }

  void draw(VSTGUI::CDrawContext* context) override {
    context->setDrawMode(VSTGUI::kAliasing);
    context->setLineWidth(1);
    context->setFrameColor(kEdgeColor);
    context->setFillColor(kPaper);
    context->drawRect(getViewSize(), VSTGUI::kDrawFilledAndStroked);
    CRect line = getViewSize();
    line.inset(kMarginX, kMarginY);
    line.bottom = line.top + kLine;
    context->setFont(textFont());
    context->setFontColor(kInk);
    for (const std::string& text : lines) {
      const VSTGUI::UTF8String drawn(text);
      context->drawString(drawn.getPlatformString(), line, VSTGUI::kLeftText, true);
      line.offset(0, kLine);
    }
    setDirty(false);
  }

  CLASS_METHODS_NOCOPY(Tooltip, CView)

 private:
  std::vector<std::string> lines;
};

// The toolkit's lists of hooks and observers take nobody in any more when an exception has gone
// through them.
template <typename Work>
void contain(const Work& work) {
  try {
    work();
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace

std::optional<CRect> tooltipPlace(const CRect& window, const CRect& control, const CPoint& size) {
  CRect place(CPoint(), size);
  const double highest = window.left + kOutside;
  const double rightmost = window.right - kOutside - size.x;
  if (rightmost < highest) return {};
  const double centred = std::floor((control.left + control.right - size.x) / 2);
  const double left = std::clamp(centred, highest, rightmost);
  double top = std::floor(control.top - kGap - size.y);
  if (top < window.top + kOutside) top = std::ceil(control.bottom + kGap);
  if (top + size.y > window.bottom - kOutside) return {};
  return place.offset(left, top);
}

Tooltips::Tooltips(VSTGUI::CFrame& window, VSTGUI::CViewContainer& held, TextOf text,
                   Allowed isAllowed)
    : frame(window), root(held), textOf(std::move(text)), allowed(std::move(isAllowed)) {
  frame.registerMouseObserver(this);
  frame.registerKeyboardHook(this);
  frame.registerViewEventListener(this);
}

Tooltips::~Tooltips() {
  contain([this] { hide(); });
  frame.unregisterViewEventListener(this);
  frame.unregisterKeyboardHook(this);
  frame.unregisterMouseObserver(this);
}

void Tooltips::idle() {
  if (!over) return;
  if (!allowed()) {
    hide();
    since = clock();
    return;
  }
  if (spent || clock() - since < kRest) return;
  spent = true;
  show();
}

void Tooltips::show() {
  std::vector<std::string> lines = linesOf(textOf(over->tag));
  if (lines.empty()) return;
  double width = 0;
  for (const std::string& line : lines)
    width = std::max(width, std::ceil(textWidth(textFont(), line)));
  const CPoint size(width + 2 * kMarginX, static_cast<double>(lines.size()) * kLine + 2 * kMarginY);
  const auto place = tooltipPlace(root.getViewSize(), over->area, size);
  if (!place) return;
  const auto tip = VSTGUI::makeOwned<Tooltip>(*place, std::move(lines));
  tip->remember();  // the root's own
  try {
    root.addView(tip);
  } catch (...) {
    if (!root.removeView(tip)) tip->forget();
    throw;
  }
  shown = tip;
}

void Tooltips::hide() {
  if (shown != nullptr) root.removeView(std::exchange(shown, nullptr));
}

void Tooltips::dismiss() {
  spent = true;
  contain([this] { hide(); });
}

void Tooltips::onMouseEvent(VSTGUI::MouseEvent& event, VSTGUI::CFrame* /*frame*/) {
  if (event.type == EventType::MouseDown || !event.buttonState.empty()) {
    dismiss();
  } else if (event.type == EventType::MouseMove && !spent) {
    since = clock();
  }
}

void Tooltips::onMouseEntered(VSTGUI::CView* view, VSTGUI::CFrame* /*frame*/) {
  const auto* control = dynamic_cast<const VSTGUI::CControl*>(view);
  if (control == nullptr) return;
  over = {view, control->getTag(), control->getViewSize()};
  since = clock();
  spent = false;
}

void Tooltips::onMouseExited(VSTGUI::CView* view, VSTGUI::CFrame* /*frame*/) {
  if (!over || over->view != view) return;
  over.reset();
  contain([this] { hide(); });
}

void Tooltips::onKeyboardEvent(VSTGUI::KeyboardEvent& event, VSTGUI::CFrame* /*frame*/) {
  if (event.type == EventType::KeyDown) dismiss();
}

void Tooltips::viewOnEvent(VSTGUI::CView* /*view*/, VSTGUI::Event& event) {
  if (event.type == EventType::MouseWheel) dismiss();
}
