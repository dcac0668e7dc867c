// Where the list of presets lies in the window, and where its entries lie in it.
#pragma once

#include <cstdint>

#include "vstgui.h"

// Columns of `rows` entries each, filled downwards one after the other, in the middle of the
// window. All values are whole pixels in the frame's coordinates.
class PresetPopupLayout {
 public:
  // window: the frame's area. entries: 1 or more. rows: entries a column, 1 or more.
  PresetPopupLayout(const VSTGUI::CRect& window, std::int32_t entries, std::int32_t rows);

  const VSTGUI::CRect& panel() const { return panelRect; }
  std::int32_t entryCount() const { return entries; }
  std::int32_t rowCount() const { return rows; }
  VSTGUI::CRect entry(std::int32_t index) const;            // 0 .. entries - 1
  std::int32_t entryAt(const VSTGUI::CPoint& where) const;  // -1: none there
  bool isColumnStart(std::int32_t index) const { return index % rows == 0; }

 private:
  std::int32_t entries, rows;
  double columnWidth, rowHeight;
  VSTGUI::CRect panelRect;
};
