// A picture at several scales, drawn on whole pixels of the screen.
#pragma once

#include "vstgui.h"

// Its size is always that of the picture at 1. User-interface thread.
class ScaledBitmap final : public VSTGUI::CBitmap {
 public:
  using CBitmap::CBitmap;

  // One more picture, of `scale` pixels a point. Where that makes half a pixel the picture has
  // a whole one, which the toolkit's own addBitmap refuses.
  void add(const VSTGUI::PlatformBitmapPtr& picture, double scale);
  bool has(double scale) const;

  // At a scale other than 1 the part, and the place of the whole of which it is one, are moved to
  // the nearest pixels: half a pixel away everything would be blurred.
  void draw(VSTGUI::CDrawContext* context, const VSTGUI::CRect& rect, const VSTGUI::CPoint& offset,
            float alpha) override;

 private:
  bool isOneOfStacked(const VSTGUI::CRect& rect) const;
  void drawStretched(VSTGUI::CDrawContext& context, const VSTGUI::CRect& pixels,
                     const VSTGUI::CRect& rect, const VSTGUI::CPoint& offset, float alpha);
};
