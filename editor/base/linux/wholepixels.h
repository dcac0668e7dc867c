// Puts areas on the screen's pixels, between which a zoom leaves them.
#pragma once

#include <cmath>

#include "vstgui.h"

// The nearest pixel's edge. A half goes up wherever it comes from: what a transform and its inverse
// leave of it may be a little less.
inline double wholePixel(double place) {
  constexpr double kLittle = 1e-6;
  return std::floor(place + 0.5 + kLittle);
}

inline VSTGUI::CRect wholePixels(const VSTGUI::CRect& area) {
  return {wholePixel(area.left), wholePixel(area.top), wholePixel(area.right),
          wholePixel(area.bottom)};
}

// The same in the context's coordinates: filled, it has no pale edges.
inline VSTGUI::CRect onWholePixels(const VSTGUI::CDrawContext& context, VSTGUI::CRect area) {
  const VSTGUI::CGraphicsTransform& toPixels = context.getCurrentTransform();
  area = wholePixels(toPixels.transform(area));
  return toPixels.inverse().transform(area);
}
