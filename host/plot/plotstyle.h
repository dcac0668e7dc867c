// Colours and text sizes of the picture.
#pragma once

#include <numbers>

#include "host/plot/plotcanvas.h"

namespace plotstyle {

constexpr PlotColour kBackground{0.071, 0.082, 0.102};
constexpr PlotColour kPanel{0.098, 0.114, 0.141};
constexpr PlotColour kWell{0.059, 0.069, 0.086};
constexpr PlotColour kGrid{1.0, 1.0, 1.0, 0.09};
constexpr PlotColour kAxis{1.0, 1.0, 1.0, 0.28};
constexpr PlotColour kBright{0.92, 0.94, 0.97};
constexpr PlotColour kMuted{0.62, 0.67, 0.74};
// Blue against orange stays two colours for almost every eye.
constexpr PlotColour kMid{0.36, 0.70, 0.98};
constexpr PlotColour kSide{1.0, 0.62, 0.26};

constexpr double kTitleSize = 26;  // pixels, as all of these
constexpr double kHeadSize = 17;
constexpr double kTextSize = 15;
constexpr double kTickSize = 13;
constexpr double kCorner = 10;

constexpr PlotText kHeading{kHeadSize, kBright, 0.0, 0.0, true};
constexpr double kHeadingLine = 29;  // below a panel's upper edge
// Beside a vertical axis, read from below.
constexpr PlotText kUpright{kTickSize, kMuted, 0.5, 0.5, false, -std::numbers::pi / 2};

}  // namespace plotstyle
