// The about panel's text, and its closing.
#include "editor/controls/csplashscreenmyview.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "editor/base/keyboard.h"
#include "editor/controls/modalview.h"
#include "lib/events.h"

using VSTGUI::CMouseEventResult;
using VSTGUI::CPoint;
using VSTGUI::CRect;

CSplashScreenMyView::CSplashScreenMyView(const CRect& size, VSTGUI::CSplashScreen* opener,
                                         const CPoint& origin)
    : CControl(size, nullptr, 0, opener->getBackground()), owner(opener), textOrigin(origin) {}

bool CSplashScreenMyView::isTypeOf(const char* className) const {
  constexpr std::array<std::string_view, 4> kNames = {"CSplashScreenMyView", "CControl", "CView",
                                                      "CBaseObject"};
  return std::find(kNames.begin(), kNames.end(), className) != kNames.end();
}

VSTGUI::CBaseObject* CSplashScreenMyView::newCopy() const {
  return new CSplashScreenMyView(getViewSize(), owner, textOrigin);
}

bool CSplashScreenMyView::attached(VSTGUI::CView* parent) {
  if (!CControl::attached(parent)) return false;
  takeKeyboard(getFrame(), true);
  return true;
}

bool CSplashScreenMyView::removed(VSTGUI::CView* parent) {
  if (isAttached()) takeKeyboard(getFrame(), false);
  return CControl::removed(parent);
}

void CSplashScreenMyView::draw(VSTGUI::CDrawContext* context) {
  if (VSTGUI::CBitmap* picture = getDrawBackground())
    picture->draw(context, getViewSize(), CPoint(0, 0), 1.0F);

  CRect line;  // 15 pixels high, as wide as the panel
  line.left = getViewSize().left + textOrigin.x;
  line.right = line.left + getViewSize().getWidth();
  line.top = getViewSize().top + textOrigin.y;
  line.bottom = line.top + 15;
  const auto write = [&](double down, VSTGUI::CFontRef font, const VSTGUI::CColor& colour,
                         const char* text) {
    line.offset(0, down);
    context->setFont(font);
    context->setFontColor(colour);
    context->drawString(text, line, VSTGUI::kCenterText, true);
  };
  write(0, VSTGUI::kNormalFontSmaller, kDarkBlueCColor, "Orv Trelvan   v." TRELVAN_VERSION);
  write(17, VSTGUI::kNormalFontSmaller, kDarkBlueCColor, "Made with care by Orv");
  write(17, VSTGUI::kNormalFontSmaller, kDarkBlueCColor, "https://orv.example");
  write(37, VSTGUI::kNormalFontVerySmall, kDarkGreyCColor, "VST PlugIn Technology by Steinberg");
  setDirty(false);
}

CMouseEventResult CSplashScreenMyView::onMouseDown(CPoint& /*where*/,
                                                   const VSTGUI::CButtonState& buttons) {
  if (!(buttons & VSTGUI::kLButton)) return VSTGUI::kMouseEventNotHandled;
  close();
  return VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

void CSplashScreenMyView::onKeyboardEvent(VSTGUI::KeyboardEvent& event) {
  if (event.type != VSTGUI::EventType::KeyDown || event.virt != VSTGUI::VirtualKey::Escape) return;
  close();
  event.consumed = true;
}

void CSplashScreenMyView::close() {
  const auto self = VSTGUI::shared(this);
  if (getFrame() != nullptr && session) endSession();
  owner->unSplash();
}

// After the event: the frame remembers the pressed view, and would remember a deleted one.
void CSplashScreenMyView::endSession() {
  afterEvent(*getFrame(), [self = VSTGUI::shared(this)] {
    VSTGUI::CFrame* closing = self->getFrame();
    if (closing == nullptr) return;  // closed meanwhile
    closing->endModalViewSession(*self->session);
    closing->invalid();
  });
}
