// The picture of what an effect did to the stereo image.
#include "host/plot/plot.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

#include "host/base/text.h"
#include "host/plot/goniometerplot.h"
#include "host/plot/plotcanvas.h"
#include "host/plot/plotstyle.h"
#include "host/plot/spectrumplot.h"

namespace {

using namespace plotstyle;

constexpr int kWidth = 1600;  // pixels
constexpr int kHeight = 1080;
constexpr double kMargin = 36;
constexpr double kGap = 20;
constexpr double kHeader = 104;  // room for the two lines on top
constexpr PlotArea kBefore{kMargin, kHeader, 540, 564};
constexpr PlotArea kAfter{kBefore.left + kBefore.width + kGap, kHeader, 540, 564};
constexpr PlotArea kFigures{kAfter.left + kAfter.width + kGap, kHeader,
                            kWidth - kMargin - (kAfter.left + kAfter.width + kGap), 564};
constexpr PlotArea kSpectra{kMargin, kHeader + 564 + kGap, kWidth - 2 * kMargin,
                            kHeight - kMargin - (kHeader + 564 + kGap)};

// The font library keeps tables that threads share.
std::mutex drawing;

void drawCaption(PlotCanvas& canvas, const PlotCaption& caption) {
  const PlotText title{kTitleSize, kBright, 0.0, 0.0, true};
  const PlotText details{kTextSize, kMuted};
  const double room = kWidth - 2 * kMargin;
  canvas.text(canvas.fitted(caption.title, title, room), {kMargin, 52}, title);
  canvas.text(canvas.fitted(caption.details, details, room), {kMargin, 82}, details);
}

std::string level(double magnitude) {
  return magnitude > 0.0 ? decibelText(magnitude) + " dBFS" : "silence";
}

std::string sideToMid(const StereoLevels& levels) {
  if (levels.mid() == 0.0 || levels.side() == 0.0) return "\u2013";
  return decibelText(levels.side() / levels.mid()) + " dB";
}

void drawFigures(PlotCanvas& canvas, const StereoAnalysis& analysis) {
  canvas.fill(kFigures, kPanel, kCorner);
  const double left = kFigures.left + 22;
  const double before = kFigures.left + 250;
  const double after = kFigures.right() - 24;
  canvas.text("Levels", {left, kFigures.top + kHeadingLine}, kHeading);
  struct Row {
    const char* name;
    std::string (*text)(const StereoLevels&);
  };
  static constexpr Row kRows[] = {
      {"peak", [](const StereoLevels& levels) { return level(levels.peak()); }},
      {"mid", [](const StereoLevels& levels) { return level(sineOf(levels.mid())); }},
      {"side", [](const StereoLevels& levels) { return level(sineOf(levels.side())); }},
      {"side to mid", sideToMid},
      {"correlation",
       [](const StereoLevels& levels) { return formatted("%.2f", levels.correlation()); }},
  };
  const PlotText muted{kTextSize, kMuted, 1.0, 0.0};
  const PlotText value{kTextSize, kBright, 1.0, 0.0};
  double y = kFigures.top + 76;
  canvas.text("before", {before, y}, muted);
  canvas.text("after", {after, y}, muted);
  for (const Row& row : kRows) {
    canvas.line({left, y + 16.5}, {after, y + 16.5}, kGrid);
    y += 46;
    canvas.text(row.name, {left, y}, {kTextSize, kMuted});
    canvas.text(row.text(analysis.before().levels()), {before, y}, value);
    canvas.text(row.text(analysis.after().levels()), {after, y}, value);
  }
  y += 92;
  canvas.text("Mono fold error", {left, y}, kHeading);
  const bool exact = analysis.foldError() == 0.0;
  canvas.text(exact ? "none" : decibelText(analysis.foldError()) + " dBFS", {left, y + 52},
              {kTitleSize + 6, kMid, 0.0, 0.0, true});
  canvas.text("largest |(L + R)/2 after \u2212 gain \u00d7 mid before|", {left, y + 84},
              {kTextSize - 1, kMuted});
}

}  // namespace

std::unique_ptr<TemporaryFile> drawPlot(const StereoAnalysis& analysis, const PlotCaption& caption,
                                        const std::filesystem::path& target, bool replace) {
  auto file = std::make_unique<TemporaryFile>(target, replace);
  const std::lock_guard guard(drawing);
  PlotCanvas canvas(kWidth, kHeight, kBackground);
  drawCaption(canvas, caption);
  double extent =
      std::max(extentOf(analysis.before().goniometer()), extentOf(analysis.after().goniometer()));
  if (extent == 0.0) extent = 1.0;  // silence
  extent *= 1.06;                   // a little air around the cloud
  drawGoniometer(canvas, kBefore, "Before", analysis.before().goniometer(), extent);
  drawGoniometer(canvas, kAfter, "After", analysis.after().goniometer(), extent);
  drawFigures(canvas, analysis);
  // What was before lies below as a wide, faint band, so that what did not change stays inside it.
  const StereoImage& before = analysis.before();
  const StereoImage& after = analysis.after();
  std::vector<SpectrumCurve> curves;
  if (before.levels().side() > 0.0)
    curves.push_back({"side before", before.sidePower(), kSide.faded(0.3), 5.0, false});
  curves.push_back({"mid before", before.midPower(), kMid.faded(0.35), 6.0, false});
  curves.push_back({"side after", after.sidePower(), kSide, 2.0, true});
  curves.push_back({"mid after", after.midPower(), kMid, 1.5, false});
  drawSpectra(canvas, kSpectra, curves, analysis.sampleRate());
  canvas.writePng(file->descriptor(), target);
  return file;
}
