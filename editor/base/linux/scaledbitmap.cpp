// Rounds to pixels what the zoom has put between them.
#include "editor/base/linux/scaledbitmap.h"

#include <algorithm>

#include "editor/base/linux/wholepixels.h"
#include "lib/platform/iplatformbitmap.h"

using VSTGUI::CDrawContext;
using VSTGUI::CGraphicsTransform;
using VSTGUI::CPoint;
using VSTGUI::CRect;

namespace {

CRect transformed(const CGraphicsTransform& by, CRect area) {
  return by.transform(area);
}

}  // namespace

void ScaledBitmap::add(const VSTGUI::PlatformBitmapPtr& picture, double scale) {
  picture->setScaleFactor(scale);
  bitmaps.emplace_back(picture);
}

bool ScaledBitmap::has(double scale) const {
  return std::any_of(begin(), end(),
                     [scale](const auto& each) { return each->getScaleFactor() == scale; });
}

bool ScaledBitmap::isOneOfStacked(const CRect& rect) const {
  return rect.getWidth() == getWidth() && rect.getHeight() < getHeight();
}

void ScaledBitmap::draw(CDrawContext* context, const CRect& rect, const CPoint& offset,
                        float alpha) {
  const CGraphicsTransform toPixels = context->getCurrentTransform();
  const double scale = toPixels.m11;
  if (scale == 1) return CBitmap::draw(context, rect, offset, alpha);
  const CGraphicsTransform fromPixels = toPixels.inverse();
  const CRect exact = transformed(toPixels, rect);
  const CRect part = wholePixels(exact);
  const CRect outerClip = context->getAbsoluteClipRect();
  CRect clip = wholePixels(outerClip);
  clip.bound(part);
  if (clip.isEmpty()) return;
  context->setClipRect(transformed(fromPixels, clip));
  if (isOneOfStacked(rect) && part.getHeight() != exact.getHeight()) {
    drawStretched(*context, part, rect, offset, alpha);
  } else {
    const CPoint corner(rect.left - offset.x, rect.top - offset.y);
    const CRect whole = wholePixels(transformed(toPixels, CRect(corner, rect.getSize())));
    const CPoint inWhole((part.left - whole.left) / scale, (part.top - whole.top) / scale);
    context->drawBitmap(this, transformed(fromPixels, part), inWhole, alpha);
  }
  context->setClipRect(transformed(fromPixels, outerClip));
}

// As high as its pixels, lest half a row of the image below it shows. pixels: where it goes.
void ScaledBitmap::drawStretched(CDrawContext& context, const CRect& pixels, const CRect& rect,
                                 const CPoint& offset, float alpha) {
  const CGraphicsTransform toPixels = context.getCurrentTransform();
  const double stretch = pixels.getHeight() / (rect.getHeight() * toPixels.m22);
  const CDrawContext::Transform stretched(context, CGraphicsTransform().scale(1, stretch));
  const CRect place = transformed(context.getCurrentTransform().inverse(), pixels);
  // Alone, since the toolkit would look for one that is as high as it is wide.
  const auto picture = VSTGUI::makeOwned<CBitmap>(
      getBestPlatformBitmapForScaleFactor(context.getScaleFactor() * toPixels.m11));
  context.drawBitmap(picture, place, offset, alpha);
}
