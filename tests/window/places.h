// Where everything stands in the window, written down once more for the tests. All numbers are
// pixels of the editor.
#pragma once

#include <array>

#include "picture.h"

namespace places {

constexpr int kWidth = 302;
constexpr int kSliderTravel = 160;  // of the handle, 16 wide, between 63 and 239

constexpr Area kMeter{60, 25, 242, 40};
constexpr Area kProcessSwitch{90, 151, 132, 181};
constexpr Area kPhaseSwitch{170, 151, 212, 181};
constexpr Area kAbout{70, 182, 225, 202};
constexpr Area kAboutPanel{39, 55, 263, 159};
constexpr Area kManual{262, 187, 278, 201};

constexpr Area kName{91, 221, 201, 237};
constexpr Area kMenu{207, 221, 217, 235};
constexpr Area kRockerLeft{219, 221, 234, 235};
constexpr Area kRockerRight{235, 221, 250, 235};
constexpr Area kSavePreset{8, 214, 20, 228};
constexpr Area kDefaultPreset{22, 216, 69, 226};
constexpr Area kLoadPreset{71, 214, 83, 228};
constexpr Area kSaveBank{8, 229, 20, 243};
constexpr Area kDefaultBank{26, 231, 63, 241};
constexpr Area kLoadBank{71, 229, 83, 243};
constexpr Area kStoreA{254, 214, 266, 228};
constexpr Area kRecallA{279, 214, 291, 228};
constexpr Area kStoreB{254, 229, 266, 243};
constexpr Area kRecallB{279, 229, 291, 243};

constexpr Area kCaptions[] = {
    {2, 24, 42, 41}, {258, 24, 298, 41}, {2, 54, 42, 71}, {2, 86, 42, 103}, {2, 118, 42, 135},
};

// index: 0 depth, 1 frequency, 2 emphasis.
constexpr Area slider(int index) {
  return {63, 51 + 32 * index, 239, 74 + 32 * index};
}
constexpr Area valueDisplay(int index) {
  return {258, 54 + 32 * index, kWidth, 71 + 32 * index};
}
// The middle of the handle at a value; 1 is at the left.
constexpr int handleX(float value) {
  return 71 + static_cast<int>((1.0F - value) * kSliderTravel + 0.5F);
}
constexpr int handleY(int index) {
  return slider(index).centreY();
}

// The list: two columns of 16 entries, rows of 14 in columns of 145, in the middle of the window.
constexpr Area kList{2, 10, 300, 240};
constexpr Area listEntry(int index) {
  const int entryLeft = 5 + index / 16 * 147;
  const int entryTop = 13 + index % 16 * 14;
  return {entryLeft, entryTop, entryLeft + 145, entryTop + 14};
}

}  // namespace places
