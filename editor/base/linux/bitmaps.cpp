// Bitmaps on X11, where a window of the toolkit's is scaled by its zoom alone.
#include "editor/base/bitmaps.h"

#include <array>
#include <cstdio>

#include "editor/base/linux/picturescales.h"
#include "editor/base/linux/scaledbitmap.h"
#include "lib/platform/iplatformbitmap.h"
#include "lib/platform/platformfactory.h"

VSTGUI::SharedPointer<VSTGUI::CBitmap> loadBitmap(std::int32_t number) {
  return VSTGUI::makeOwned<ScaledBitmap>(VSTGUI::CResourceDescription(number));
}

bool loadScale(VSTGUI::CBitmap& bitmap, std::int32_t number, double scale) {
  auto& scaled = static_cast<ScaledBitmap&>(bitmap);
  const PictureScale& wanted = pictureScale(scale);
  if (scaled.has(wanted.scale)) return true;
  std::array<char, 32> name{};  // bmp00128@1.5x.png; the number as in the toolkit's own names
  std::snprintf(name.data(), name.size(), "bmp%05d%s.png", static_cast<int>(number), wanted.suffix);
  const auto picture =
      VSTGUI::getPlatformFactory().createBitmap(VSTGUI::CResourceDescription(name.data()));
  if (picture == nullptr || picture->getSize().x <= 0) return false;
  scaled.add(picture, wanted.scale);
  return true;
}
