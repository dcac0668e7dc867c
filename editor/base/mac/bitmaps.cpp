// Bitmaps for macOS, each with the picture that Retina screens show.
#include "editor/base/bitmaps.h"

#include <cstdio>

#include "lib/platform/iplatformbitmap.h"
#include "lib/platform/platformfactory.h"
#include "vstgui.h"

VSTGUI::SharedPointer<VSTGUI::CBitmap> loadBitmap(std::int32_t number) {
  auto bitmap = VSTGUI::makeOwned<VSTGUI::CBitmap>(VSTGUI::CResourceDescription(number));
  char name[32];
  std::snprintf(name, sizeof(name), "bmp%05d@2x.png", static_cast<int>(number));
  const auto sharp = VSTGUI::getPlatformFactory().createBitmap(VSTGUI::CResourceDescription(name));
  if (bitmap->isLoaded() && sharp != nullptr) {
    sharp->setScaleFactor(2.);  // pixels a point
    bitmap->addBitmap(sharp);
  }
  return bitmap;
}

bool loadScale(VSTGUI::CBitmap& /*bitmap*/, std::int32_t /*number*/, double /*scale*/) {
  return true;  // it has what the screens show
}
