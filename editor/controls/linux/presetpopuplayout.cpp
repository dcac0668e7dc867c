// Fits the columns into the window.
#include "editor/controls/linux/presetpopuplayout.h"

#include <algorithm>
#include <cmath>

namespace {

// Pixels.
constexpr double kWindowMargin = 2;
constexpr double kInset = 3;          // the panel's edge and the room inside it
constexpr double kGap = 2;            // between columns
constexpr double kRowHeight = 14;     // an 11 pixel font with some air
constexpr double kColumnWidth = 145;  // two of them fill the window's 302

}  // namespace

PresetPopupLayout::PresetPopupLayout(const VSTGUI::CRect& window, std::int32_t entryTotal,
                                     std::int32_t rowTotal)
    : entries(entryTotal), rows(rowTotal) {
  const std::int32_t columns = (entries + rows - 1) / rows;
  const double frameWidth = 2 * (kWindowMargin + kInset) + (columns - 1) * kGap;
  const double frameHeight = 2 * (kWindowMargin + kInset);
  columnWidth = std::min(kColumnWidth, std::floor((window.getWidth() - frameWidth) / columns));
  rowHeight = std::min(kRowHeight, std::floor((window.getHeight() - frameHeight) / rows));
  panelRect = VSTGUI::CRect(0, 0, columns * columnWidth + (columns - 1) * kGap + 2 * kInset,
                            std::min(rows, entries) * rowHeight + 2 * kInset);
  panelRect.offset(std::floor(window.left + (window.getWidth() - panelRect.getWidth()) / 2),
                   std::floor(window.top + (window.getHeight() - panelRect.getHeight()) / 2));
}

VSTGUI::CRect PresetPopupLayout::entry(std::int32_t index) const {
  const std::int32_t column = index / rows;
  const std::int32_t row = index % rows;
  const double left = panelRect.left + kInset + column * (columnWidth + kGap);
  const double top = panelRect.top + kInset + row * rowHeight;
  return {left, top, left + columnWidth, top + rowHeight};
}

std::int32_t PresetPopupLayout::entryAt(const VSTGUI::CPoint& where) const {
  for (std::int32_t index = 0; index < entries; ++index) {
    if (entry(index).pointInside(where)) return index;
  }
  return -1;
}
