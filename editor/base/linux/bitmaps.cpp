// Bitmaps on X11, where a window of the toolkit's is scaled by its zoom alone.
#include "editor/base/bitmaps.h"

#include <array>
#include <cstdio>

#include "editor/base/linux/embeddedpictures.h"
#include "editor/base/linux/picturescales.h"
#include "editor/base/linux/scaledbitmap.h"
#include "lib/platform/iplatformbitmap.h"
#include "lib/platform/linux/linuxfactory.h"
#include "lib/platform/platformfactory.h"

namespace {

// Null where it cannot be read. Where there is a bundle its files alone count: one that is missing
// there tells of a bundle that is being replaced, or of a process that cannot open files.
VSTGUI::PlatformBitmapPtr readPicture(std::int32_t number, const PictureScale& at) {
  std::array<char, 32> name{};  // bmp00128@1.5x.png
  std::snprintf(name.data(), name.size(), "bmp%05d%s.png", static_cast<int>(number), at.suffix);
  const VSTGUI::IPlatformFactory& factory = VSTGUI::getPlatformFactory();
  if (!factory.asLinuxFactory()->getResourcePath().empty())
    return factory.createBitmap(VSTGUI::CResourceDescription(name.data()));
  const auto bytes = embeddedPicture(name.data());
  return factory.createBitmapFromMemory(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}

}  // namespace

VSTGUI::SharedPointer<VSTGUI::CBitmap> loadBitmap(std::int32_t number) {
  const auto picture = readPicture(number, kPictureScales[0]);
  return picture != nullptr ? VSTGUI::makeOwned<ScaledBitmap>(picture)
                            : VSTGUI::makeOwned<ScaledBitmap>();
}

bool loadScale(VSTGUI::CBitmap& bitmap, std::int32_t number, double scale) {
  auto& scaled = static_cast<ScaledBitmap&>(bitmap);
  const PictureScale& wanted = pictureScale(scale);
  if (scaled.has(wanted.scale)) return true;
  const auto picture = readPicture(number, wanted);
  if (picture == nullptr || picture->getSize().x <= 0) return false;
  scaled.add(picture, wanted.scale);
  return true;
}
