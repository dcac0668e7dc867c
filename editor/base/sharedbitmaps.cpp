// Keeps what has been read until the toolkit's last user goes.
#include "editor/base/sharedbitmaps.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>

#include "editor/base/bitmaps.h"

namespace {

using Bitmaps = std::map<std::int32_t, VSTGUI::SharedPointer<VSTGUI::CBitmap>>;

// no destructor work, as for everything static here: hosts exit with windows open
std::mutex bitmapsMutex;
Bitmaps* bitmaps = nullptr;
std::atomic<std::uint32_t> missing{0};

bool isThere(const VSTGUI::CBitmap& bitmap) {
  return bitmap.isLoaded() && bitmap.getWidth() > 0;  // one without memory has no size
}

}  // namespace

VSTGUI::SharedPointer<VSTGUI::CBitmap> sharedBitmap(std::int32_t number) {
  const std::lock_guard<std::mutex> lock(bitmapsMutex);
  if (bitmaps == nullptr) bitmaps = new Bitmaps;
  if (const auto known = bitmaps->find(number); known != bitmaps->end()) return known->second;
  const auto read = loadBitmap(number);
  if (isThere(*read)) {
    bitmaps->emplace(number, read);
  } else {
    ++missing;
  }
  return read;
}

void loadSharedBitmapsFor(double scale) {
  const std::lock_guard<std::mutex> lock(bitmapsMutex);
  if (bitmaps == nullptr) return;
  for (const auto& [number, bitmap] : *bitmaps) {
    if (!loadScale(*bitmap, number, scale)) ++missing;
  }
}

void forgetSharedBitmaps() {
  const std::lock_guard<std::mutex> lock(bitmapsMutex);
  delete bitmaps;
  bitmaps = nullptr;
}

MissingBitmaps::MissingBitmaps() : before(missing) {}

bool MissingBitmaps::any() const {
  return missing != before;
}
