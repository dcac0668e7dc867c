// Draws a goniometer with its axes.
#include "host/plot/goniometerplot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "host/base/text.h"
#include "host/plot/plotstyle.h"

namespace {

using namespace plotstyle;

constexpr double kLabelRoom = 56;  // pixels left and below
constexpr double kHeadRoom = 44;   // above
constexpr double kRightRoom = 20;
constexpr int kCells = Goniometer::kCells;
constexpr int kTicksEachWay = 3;  // at most

struct Ramp {
  double at;
  PlotColour colour;
};
constexpr std::array<Ramp, 5> kDensity = {{{0.0, {0.10, 0.25, 0.50, 0.55}},
                                           {0.35, {0.12, 0.48, 0.80, 0.90}},
                                           {0.65, {0.25, 0.80, 0.85, 1.0}},
                                           {0.85, {0.85, 0.93, 0.55, 1.0}},
                                           {1.0, {1.0, 1.0, 0.94, 1.0}}}};

// Premultiplied ARGB.
std::uint32_t densityPixel(double density) {
  std::size_t upper = 1;
  while (upper + 1 < kDensity.size() && density > kDensity[upper].at) ++upper;
  const Ramp& a = kDensity[upper - 1];
  const Ramp& b = kDensity[upper];
  const double part = (density - a.at) / (b.at - a.at);
  const double alpha = std::lerp(a.colour.alpha, b.colour.alpha, part);
  const auto channel = [&](double from, double to) {
    return static_cast<std::uint32_t>(std::lround(std::lerp(from, to, part) * alpha * 255.0));
  };
  return static_cast<std::uint32_t>(std::lround(alpha * 255.0)) << 24 |
         channel(a.colour.red, b.colour.red) << 16 | channel(a.colour.green, b.colour.green) << 8 |
         channel(a.colour.blue, b.colour.blue);
}

// 1, 2 or 5 times a power of ten, so that no more than kTicksEachWay fit into the extent.
double tickStep(double extent) {
  const double decade = std::pow(10.0, std::floor(std::log10(extent / kTicksEachWay)));
  for (const double step : {1.0, 2.0, 5.0, 10.0}) {
    if (extent / (step * decade) <= kTicksEachWay) return step * decade;
  }
  return 10.0 * decade;
}

// 0..1 for every cell, from the picture's upper left: left is to the left and up is up, so both
// directions turn round. A cell without frames takes a little from its neighbours, or single frames
// would be too small to see.
std::vector<double> densitiesOf(const Goniometer& goniometer) {
  constexpr double kFromNeighbours = 0.4;
  constexpr double kContrast = 0.75;  // below 1: sparse parts come out brighter
  std::uint32_t most = 1;
  for (int row = 0; row < kCells; ++row) {
    for (int column = 0; column < kCells; ++column)
      most = std::max(most, goniometer.count(column, row));
  }
  const auto own = [&](int column, int row) {
    if (column < 0 || row < 0 || column >= kCells || row >= kCells) return 0.0;
    const std::uint32_t count = goniometer.count(kCells - 1 - column, kCells - 1 - row);
    return std::pow(std::log1p(count) / std::log1p(std::max(most, 16U)), kContrast);
  };
  std::vector<double> densities;
  densities.reserve(static_cast<std::size_t>(kCells) * kCells);
  for (int row = 0; row < kCells; ++row) {
    for (int column = 0; column < kCells; ++column) {
      double density = own(column, row);
      if (density == 0.0) {
        const double around = std::max({own(column - 1, row), own(column + 1, row),
                                        own(column, row - 1), own(column, row + 1)});
        density = around * kFromNeighbours;
      }
      densities.push_back(density);
    }
  }
  return densities;
}

void drawCells(PlotCanvas& canvas, const PlotArea& square, const Goniometer& goniometer,
               double extent) {
  std::vector<std::uint32_t> pixels;
  for (const double density : densitiesOf(goniometer))
    pixels.push_back(density > 0.0 ? densityPixel(density) : 0);
  const double zoom = goniometer.range() / extent;
  const PlotArea whole{square.centreX() - square.width / 2 * zoom,
                       square.centreY() - square.height / 2 * zoom, square.width * zoom,
                       square.height * zoom};
  canvas.image(whole, pixels, kCells, kCells);
}

void drawAxes(PlotCanvas& canvas, const PlotArea& square, double extent) {
  const double step = tickStep(extent);
  const PlotText below{kTickSize, kMuted, 0.5, 1.0};
  const PlotText beside{kTickSize, kMuted, 1.0, 0.5};
  const int ticks = static_cast<int>(std::floor(extent / step + 1e-9));
  for (int tick = -ticks; tick <= ticks; ++tick) {
    const double offset = tick * step / extent * square.width / 2;
    const double x = square.centreX() + offset;
    const double y = square.centreY() - offset;
    canvas.line({x, square.top}, {x, square.bottom()}, kGrid);
    canvas.line({square.left, y}, {square.right(), y}, kGrid);
    canvas.text(formatted("%g", std::abs(tick * step)), {x, square.bottom() + 8}, below);
    canvas.text(formatted("%g", tick * step), {square.left - 8, y}, beside);
  }
  const PlotText title{kTickSize, kMuted, 0.5, 1.0};
  canvas.text("left  \u2190  side  \u2192  right", {square.centreX(), square.bottom() + 30}, title);
  canvas.text("mid", {square.left - 44, square.centreY()}, kUpright);
}

}  // namespace

double extentOf(const Goniometer& goniometer) {
  constexpr int kMiddle = kCells / 2;
  int farthest = 0;
  for (int row = 0; row < kCells; ++row) {
    for (int column = 0; column < kCells; ++column) {
      if (goniometer.count(column, row) == 0) continue;
      const auto reach = [](int index) {
        return index >= kMiddle ? index - kMiddle + 1 : kMiddle - index;
      };
      farthest = std::max({farthest, reach(row), reach(column)});
    }
  }
  const bool onlySilence = farthest <= 1;
  return onlySilence ? 0.0 : goniometer.range() * farthest / kMiddle;
}

void drawGoniometer(PlotCanvas& canvas, const PlotArea& frame, const std::string& title,
                    const Goniometer& goniometer, double extent) {
  canvas.fill(frame, kPanel, kCorner);
  const double side =
      std::min(frame.width - kLabelRoom - kRightRoom, frame.height - kHeadRoom - kLabelRoom);
  const PlotArea square{frame.left + kLabelRoom, frame.top + kHeadRoom, side, side};
  canvas.text(title, {frame.left + kRightRoom, frame.top + kHeadingLine}, kHeading);
  canvas.fill(square, kWell);
  drawAxes(canvas, square, extent);
  {
    const PlotCanvas::Clip inside(canvas, square);
    canvas.line({square.left, square.top}, {square.right(), square.bottom()}, kAxis, 1.0, true);
    canvas.line({square.right(), square.top}, {square.left, square.bottom()}, kAxis, 1.0, true);
    canvas.line({square.centreX(), square.top}, {square.centreX(), square.bottom()}, kAxis);
    canvas.line({square.left, square.centreY()}, {square.right(), square.centreY()}, kAxis);
    drawCells(canvas, square, goniometer, extent);
    const PlotText letter{kHeadSize, kBright, 0.5, 0.5, true};
    canvas.text("L", {square.left + 34, square.top + 18}, letter);
    canvas.text("R", {square.right() - 34, square.top + 18}, letter);
  }
  canvas.outline(square, kAxis);
}
