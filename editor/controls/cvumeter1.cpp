// The level meter's picture.
#include "editor/controls/cvumeter1.h"

#include <algorithm>

CVuMeter1::CVuMeter1(const VSTGUI::CRect& size, VSTGUI::CBitmap* onBitmap,
                     VSTGUI::CBitmap* offBitmap, std::int32_t nbLed, std::int32_t style)
    : CVuMeter(size, onBitmap, offBitmap, nbLed, style) {
  // The toolkit's own timer would let the meter fall between the editor's idle passes, and its
  // updater is a static object that a host's exit with an open window leaves in pieces.
  setWantsIdle(false);
  setMouseEnabled(false);  // a Control click would set the default value
}

void CVuMeter1::draw(VSTGUI::CDrawContext* context) {
  VSTGUI::CBitmap* lit = getOnBitmap();
  if (lit == nullptr) return;
  bounceValue();
  const float shown = std::max(value, getOldValue() - getDecreaseStepValue());
  setOldValue(shown);

  const VSTGUI::CRect& area = getViewSize();
  const auto leds = static_cast<float>(nbLed);
  const bool horizontal = (style & kHorizontal) != 0;
  const auto steps =
      static_cast<std::int32_t>(leds * (horizontal ? shown : getMax() - shown) + 0.5F);
  const double share = static_cast<float>(steps) / leds;
  VSTGUI::CPoint litFrom, unlitFrom;
  if (horizontal) {
    unlitFrom.x = share * lit->getWidth();
    rectOn.right = rectOff.left = area.left + unlitFrom.x;
  } else {
    litFrom.y = share * lit->getHeight();
    rectOff.bottom = rectOn.top = area.top + litFrom.y;
  }
  if (VSTGUI::CBitmap* unlit = getOffBitmap()) unlit->draw(context, rectOff, unlitFrom, 1.0F);
  lit->draw(context, rectOn, litFrom, 1.0F);
  setDirty(false);
}
