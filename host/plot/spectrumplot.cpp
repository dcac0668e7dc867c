// Draws mean spectra over a logarithmic frequency axis.
#include "host/plot/spectrumplot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/base/text.h"
#include "host/plot/plotstyle.h"
#include "host/plot/spectrum.h"

namespace {

using namespace plotstyle;

constexpr double kLowest = 20.0;         // Hz
constexpr double kHighest = 20000.0;     // Hz, or half the sample rate
constexpr double kRange = 90.0;          // dB shown
constexpr double kSilence = -200.0;      // dB, for no power at all
constexpr double kSmoothing = 1.0 / 24;  // octaves

struct Axes {
  PlotArea area;
  double highest;   // Hz
  double top;       // dB
  double binWidth;  // Hz

  double frequencyAt(double x) const {
    return kLowest * std::pow(highest / kLowest, (x - area.left) / area.width);
  }
  double xOf(double hertz) const {
    return area.left + area.width * std::log(hertz / kLowest) / std::log(highest / kLowest);
  }
  double yOf(double decibels) const { return area.top + area.height * (top - decibels) / kRange; }
};

double decibels(double power) {
  return power > 0.0 ? std::max(kSilence, 10.0 * std::log10(power)) : kSilence;
}

// Mean over the bins around a frequency; between two bins where the spectrum is coarser
// than the axis.
double levelAt(const std::vector<double>& power, double bin) {
  const double half = std::pow(2.0, kSmoothing / 2);
  const auto first = static_cast<std::size_t>(std::ceil(bin / half));
  const auto last = std::min(power.size() - 1, static_cast<std::size_t>(std::floor(bin * half)));
  if (last >= first + 1) {
    double sum = 0.0;
    for (std::size_t i = first; i <= last; ++i) sum += power[i];
    return decibels(sum / static_cast<double>(last - first + 1));
  }
  const auto below = std::min(power.size() - 2, static_cast<std::size_t>(bin));
  return std::lerp(decibels(power[below]), decibels(power[below + 1]),
                   bin - static_cast<double>(below));
}

std::vector<PlotPoint> pointsOf(const std::vector<double>& power, const Axes& axes) {
  std::vector<PlotPoint> points;
  const int pixels = static_cast<int>(axes.area.width);
  for (int pixel = 0; pixel <= pixels; ++pixel) {
    const double x = axes.area.left + pixel;
    points.push_back({x, axes.yOf(levelAt(power, axes.frequencyAt(x) / axes.binWidth))});
  }
  return points;
}

double loudest(const std::vector<SpectrumCurve>& curves) {
  double most = 0.0;
  for (const SpectrumCurve& curve : curves)
    most = std::max(most, *std::max_element(curve.power.begin(), curve.power.end()));
  return most > 0.0 ? decibels(most) : 0.0;
}

void drawGrid(PlotCanvas& canvas, const Axes& axes) {
  const PlotArea& area = axes.area;
  for (int decibelsDown = 0; decibelsDown <= kRange; decibelsDown += 10) {
    const double level = axes.top - decibelsDown;
    const double y = axes.yOf(level);
    canvas.line({area.left, y}, {area.right(), y}, kGrid);
    canvas.text(formatted("%.0f", level), {area.left - 10, y}, {kTickSize, kMuted, 1.0, 0.5});
  }
  // Hz
  constexpr std::array<double, 10> kTicks = {20, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000};
  for (const double hertz : kTicks) {
    if (hertz > axes.highest) continue;
    const double x = axes.xOf(hertz);
    canvas.line({x, area.top}, {x, area.bottom()}, kGrid);
    const std::string label =
        hertz >= 1000 ? formatted("%.0fk", hertz / 1000) : formatted("%.0f", hertz);
    canvas.text(label, {x, area.bottom() + 9}, {kTickSize, kMuted, 0.5, 1.0});
  }
  canvas.text("frequency (Hz)", {area.centreX(), area.bottom() + 31},
              {kTickSize, kMuted, 0.5, 1.0});
  canvas.text("level (dBFS)", {area.left - 52, area.centreY()}, kUpright);
}

void drawLegend(PlotCanvas& canvas, const PlotArea& frame,
                const std::vector<SpectrumCurve>& curves) {
  double x = frame.right() - 24;
  for (auto curve = curves.rbegin(); curve != curves.rend(); ++curve) {
    const PlotText look{kTextSize, kBright, 1.0, 0.0};
    canvas.text(curve->name, {x, frame.top + kHeadingLine}, look);
    x -= canvas.widthOf(curve->name, look) + 8;
    canvas.line({x - 30, frame.top + 24}, {x, frame.top + 24}, curve->colour, curve->width + 0.5);
    x -= 30 + 26;
  }
}

}  // namespace

void drawSpectra(PlotCanvas& canvas, const PlotArea& frame,
                 const std::vector<SpectrumCurve>& curves, int sampleRate) {
  canvas.fill(frame, kPanel, kCorner);
  canvas.text("Spectrum", {frame.left + 20, frame.top + kHeadingLine}, kHeading);
  drawLegend(canvas, frame, curves);
  Axes axes{};
  axes.area = {frame.left + 76, frame.top + 46, frame.width - 76 - 30, frame.height - 46 - 56};
  axes.highest = std::max(2 * kLowest, std::min(kHighest, sampleRate / 2.0));
  axes.binWidth = static_cast<double>(sampleRate) / Spectrum::kSize;
  axes.top = std::ceil((loudest(curves) + 1.0) / 10.0) * 10.0;
  canvas.fill(axes.area, kWell);
  drawGrid(canvas, axes);
  {
    const PlotCanvas::Clip inside(canvas, axes.area);
    for (const SpectrumCurve& curve : curves) {
      const std::vector<PlotPoint> points = pointsOf(curve.power, axes);
      if (curve.filled) canvas.under(points, axes.area.bottom() + 1, curve.colour.faded(0.16));
      canvas.curve(points, curve.colour, curve.width);
    }
  }
  canvas.outline(axes.area, kAxis);
}
