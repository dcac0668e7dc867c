// The list of presets as a modal view inside the frame: the toolkit's own menu shows 12 rows of one
// column here.
#include "editor/controls/presetpopup.h"

#include <algorithm>
#include <cmath>

#include "editor/base/keyboard.h"
#include "editor/base/linux/wholepixels.h"
#include "editor/controls/cpresetmenu.h"
#include "editor/controls/fitname.h"
#include "editor/controls/linux/pointergrab.h"
#include "editor/controls/linux/presetpopuplayout.h"
#include "editor/controls/modalview.h"
#include "editor/controls/wheelsteps.h"
#include "editor/controls/windowcolors.h"
#include "lib/cgraphicspath.h"
#include "vstgui.h"

using VSTGUI::CButtonState;
using VSTGUI::CColor;
using VSTGUI::CMouseEventResult;
using VSTGUI::CPoint;
using VSTGUI::CRect;
using VSTGUI::VirtualKey;

namespace {

constexpr std::int32_t kNone = -1;
constexpr double kDragDistance = 5;  // pixels: less is a click, not a drag

// Between two columns.
constexpr CColor kColumnLine(169, 187, 200);
// Pixels in an entry.
constexpr double kMarkRoom = 12;  // left of the name
constexpr double kMarkLeft = 4;
constexpr double kMarkSize = 5;
constexpr double kRightRoom = 3;

// Goes with its frame while it is open. It tells the menu once, after the event that ends it: the
// frame still holds on to a view while it gives it an event.
class PresetPopup final : public VSTGUI::CView {
 public:
  PresetPopup(const PresetPopupLayout& places, CPresetMenu* opener,
              const std::optional<CPoint>& press)
      : CView(places.panel()),
        layout(places),
        menu(VSTGUI::shared(opener)),
        openingPress(press),
        highlighted(opener->getCurrentIndex(true)) {}

  void setSession(VSTGUI::ModalViewSessionID id) { session = id; }

  bool attached(CView* parent) override {
    if (!CView::attached(parent)) return false;
    menu->opened();
    grabPointer(getFrame(), true);
    takeKeyboard(getFrame(), true);
    return true;
  }

  bool removed(CView* parent) override {
    if (isAttached()) {
      takeKeyboard(getFrame(), false);
      grabPointer(getFrame(), false);
      menu->closed();
    }
    return CView::removed(parent);
  }

  void draw(VSTGUI::CDrawContext* context) override { drawRect(context, getViewSize()); }

  void drawRect(VSTGUI::CDrawContext* context, const CRect& updateRect) override {
    context->setDrawMode(VSTGUI::kAliasing);
    context->setLineWidth(1);
    context->setFillColor(kFieldColor);
    context->setFrameColor(kEdgeColor);
    context->drawRect(getViewSize(), VSTGUI::kDrawFilledAndStroked);
    for (std::int32_t index = 0; index < layout.entryCount(); ++index) {
      if (index > 0 && layout.isColumnStart(index))
        drawColumnLine(context, layout.entry(index).left);
      if (layout.entry(index).rectOverlap(updateRect)) drawEntry(context, index);
    }
    setDirty(false);
  }

  // A press outside closes; inside it may start a drag, and the release decides.
  CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override {
    openingPress.reset();
    if (!(buttons & (VSTGUI::kLButton | VSTGUI::kRButton))) return VSTGUI::kMouseEventHandled;
    pressed = getViewSize().pointInside(where);
    if (pressed) {
      highlight(layout.entryAt(where));
    } else {
      end(kNone);
    }
    return VSTGUI::kMouseEventHandled;
  }

  CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& /*buttons*/) override {
    if (openingPress && !dragged) {
      dragged = std::abs(where.x - openingPress->x) > kDragDistance ||
                std::abs(where.y - openingPress->y) > kDragDistance;
    }
    if (!openingPress || dragged) highlight(layout.entryAt(where));
    return VSTGUI::kMouseEventHandled;
  }

  CMouseEventResult onMouseUp(CPoint& where, const CButtonState& /*buttons*/) override {
    const bool ofOpening = openingPress.has_value();
    openingPress.reset();
    // a click on the menu leaves the list open
    if (ofOpening ? !dragged : !pressed) return VSTGUI::kMouseEventHandled;
    pressed = false;
    const std::int32_t index = layout.entryAt(where);
    if (index != kNone) {
      end(index);
    } else if (ofOpening && !getViewSize().pointInside(where) && !menuArea().pointInside(where)) {
      end(kNone);
    }
    return VSTGUI::kMouseEventHandled;
  }

  void onMouseWheelEvent(VSTGUI::MouseWheelEvent& event) override {
    step(-wheel.add(event.deltaY));
    event.consumed = true;
  }

  // All keys stay here: nothing else may act on them.
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event) override {
    event.consumed = true;
    if (event.type != VSTGUI::EventType::KeyDown || !event.modifiers.empty()) return;
    switch (event.virt) {
      case VirtualKey::Up:
        return step(-1);
      case VirtualKey::Down:
        return step(1);
      case VirtualKey::Left:
        return jump(-layout.rowCount());
      case VirtualKey::Right:
        return jump(layout.rowCount());
      case VirtualKey::Home:
        return highlight(0);
      case VirtualKey::End:
        return highlight(layout.entryCount() - 1);
      case VirtualKey::Return:
      case VirtualKey::Enter:
        return end(highlighted);
      case VirtualKey::Escape:
        return end(kNone);
      default:
        return;
    }
  }

  CLASS_METHODS_NOCOPY(PresetPopup, CView)

 private:
  void drawColumnLine(VSTGUI::CDrawContext* context, double columnLeft) {
    const CRect first = layout.entry(0);
    const double x = columnLeft - 1;
    context->setFrameColor(kColumnLine);
    context->drawLine(CPoint(x, first.top),
                      CPoint(x, getViewSize().bottom - (first.top - getViewSize().top)));
  }

  void drawEntry(VSTGUI::CDrawContext* context, std::int32_t index) {
    const VSTGUI::CMenuItem* item = menu->getEntry(index);
    if (item == nullptr) return;
    CRect area = onWholePixels(*context, layout.entry(index));
    const VSTGUI::ConcatClip clip(*context, area);
    const bool lit = index == highlighted;
    if (lit) {
      context->setFillColor(kMarkColor);
      context->drawRect(area, VSTGUI::kDrawFilled);
    }
    if (index == menu->getCurrentIndex(true))
      drawMark(context, area, lit ? VSTGUI::kWhiteCColor : kMarkColor);
    area.left += kMarkRoom;
    area.right -= kRightRoom;
    const FittedName name =
        fitName(context, item->getTitle().getString(), area.getWidth(), VSTGUI::kNormalFontSmall);
    context->setFont(name.font);
    context->setFontColor(lit ? VSTGUI::kWhiteCColor : VSTGUI::kBlackCColor);
    context->drawString(name.text.getPlatformString(), area, VSTGUI::kLeftText, true);
  }

  void drawMark(VSTGUI::CDrawContext* context, const CRect& area, const CColor& colour) {
    CRect mark(0, 0, kMarkSize, kMarkSize);
    mark.offset(area.left + kMarkLeft, area.top + std::floor((area.getHeight() - kMarkSize) / 2));
    const auto dot = VSTGUI::owned(context->createGraphicsPath());
    if (!dot) return;
    dot->addEllipse(mark);
    context->setDrawMode(VSTGUI::kAntiAliasing);
    context->setFillColor(colour);
    context->drawGraphicsPath(dot);
    context->setDrawMode(VSTGUI::kAliasing);
  }

  CRect menuArea() const { return menu->translateToGlobal(menu->getViewSize(), true); }

  void highlight(std::int32_t index) {
    if (index == highlighted) return;
    for (const std::int32_t changed : {highlighted, index}) {
      if (changed != kNone) invalidRect(layout.entry(changed));
    }
    highlighted = index;
  }

  // Through the list, from the current entry where none is highlighted.
  void step(int count) {
    if (count == 0) return;
    const std::int32_t from = highlighted != kNone ? highlighted : menu->getCurrentIndex(true);
    highlight(std::clamp(from + count, 0, layout.entryCount() - 1));
  }

  // To the same row of another column, if it is there.
  void jump(int count) {
    const std::int32_t from = highlighted != kNone ? highlighted : menu->getCurrentIndex(true);
    if (from + count >= 0 && from + count < layout.entryCount()) highlight(from + count);
  }

  // Without the memory for it the list stays, and the next key or click ends it.
  void end(std::int32_t chosen) {
    if (ending) return;
    const auto finish = [self = VSTGUI::shared(this), chosen] {
      self->ending = false;
      VSTGUI::CFrame* frame = self->getFrame();
      if (frame == nullptr) return;  // closed meanwhile
      frame->endModalViewSession(self->session);
      frame->setFocusView(self->menu);
      if (chosen != kNone) self->menu->choose(chosen);
    };
    afterEvent(*getFrame(), finish);
    ending = isAttached();
  }

  PresetPopupLayout layout;
  VSTGUI::SharedPointer<CPresetMenu> menu;
  VSTGUI::ModalViewSessionID session{};
  std::optional<CPoint> openingPress;  // until its release
  bool dragged = false;                // the opening press has moved away from its place
  bool pressed = false;                // a press inside the list is held
  bool ending = false;                 // waits for the end of the event
  WheelSteps wheel;
  std::int32_t highlighted;  // kNone: none
};

}  // namespace

void openPresetPopup(CPresetMenu* menu, const std::optional<CPoint>& press) {
  VSTGUI::CFrame* frame = menu->getFrame();
  if (menu->getNbEntries() == 0) return;
  CRect window = frame->getViewSize();
  frame->getTransform().inverse().transform(window);  // zoom
  window.originize();
  constexpr std::int32_t kRows = 16;  // where the menu does not say
  const std::int32_t rows = menu->getNbItemsPerColumn() > 0 ? menu->getNbItemsPerColumn() : kRows;
  auto* popup = new PresetPopup(PresetPopupLayout(window, menu->getNbEntries(), rows), menu, press);
  if (const auto session = beginModalView(*frame, popup)) popup->setSession(*session);
}
