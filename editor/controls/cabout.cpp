// Opens the about panel.
#include "editor/controls/cabout.h"

#include "editor/controls/csplashscreenmyview.h"
#include "editor/controls/modalview.h"

CAbout::CAbout(const VSTGUI::CRect& size, VSTGUI::IControlListener* listener, std::int32_t tag,
               VSTGUI::CBitmap* background, const VSTGUI::CRect& displayArea,
               const VSTGUI::CPoint& offset, const VSTGUI::CPoint& origin)
    : OwnPresses(size, listener, tag, background, displayArea, offset), textOrigin(origin) {}

VSTGUI::CMouseEventResult CAbout::onMouseDown(VSTGUI::CPoint& /*where*/,
                                              const VSTGUI::CButtonState& buttons) {
  VSTGUI::CFrame* frame = getFrame();
  if (!(buttons & VSTGUI::kLButton) || frame == nullptr) return VSTGUI::kMouseEventNotHandled;
  // The release goes to the panel.
  constexpr auto kHandled = VSTGUI::kMouseDownEventHandledButDontNeedMovedOrUpEvents;
  if (value != 0) {
    value = 0;
    return kHandled;
  }
  auto* panel = new CSplashScreenMyView(toDisplay, this, textOrigin);
  const auto session = beginModalView(*frame, panel);
  if (!session) return kHandled;
  panel->setSession(*session);
  value = 1;
  invalid();
  return kHandled;
}
