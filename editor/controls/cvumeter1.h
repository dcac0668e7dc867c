// A level meter drawn from a lit and an unlit bitmap.
#pragma once

#include "lib/controls/cvumeter.h"
#include "vstgui.h"

// Rises at once and falls by at most one decrease step per redraw, in whole steps of the bitmap's
// length / nbLed. It redraws from the frame's idle only, and lets presses
// through. User-interface thread.
class CVuMeter1 : public VSTGUI::CVuMeter {
 public:
  // nbLed: steps, at least 1. style: CVuMeter's. The unlit bitmap may be missing.
  CVuMeter1(const VSTGUI::CRect& size, VSTGUI::CBitmap* onBitmap, VSTGUI::CBitmap* offBitmap,
            std::int32_t nbLed, std::int32_t style);

  void draw(VSTGUI::CDrawContext* context) override;

  CLASS_METHODS_NOCOPY(CVuMeter1, CVuMeter)
};
