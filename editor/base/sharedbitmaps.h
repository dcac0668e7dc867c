// The bundle's pictures, each of which is in memory once however many windows show it.
#pragma once

#include <cstdint>

#include "vstgui.h"

// As loadBitmap, but from the second time on the same one. Nobody changes it. A picture that could
// not be read is no bitmap to share: the next one who asks makes another attempt. With the toolkit
// set up; several threads may ask at once, as hosts may make instances so.
VSTGUI::SharedPointer<VSTGUI::CBitmap> sharedBitmap(std::int32_t number);

// Reads the pictures of all shared bitmaps that a window of `scale` shows, beside those that other
// windows have. What could not be read counts as missing. As sharedBitmap.
void loadSharedBitmapsFor(double scale);

// Those that are shown stay until their views go. Called before the toolkit is taken down.
void forgetSharedBitmaps();

// Tells whether pictures could not be read while it lives: the process may have no file left to
// open, or no memory for them.
class MissingBitmaps {
 public:
  MissingBitmaps();
  bool any() const;

 private:
  std::uint32_t before;
};
