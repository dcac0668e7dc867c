// The picture of what an effect did to the stereo image.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "host/base/temporaryfile.h"
#include "host/plot/stereoanalysis.h"

// The two lines on top, shortened where they are too long. Any bytes.
struct PlotCaption {
  std::string title;
  std::string details;
};

// Goniometers before and after, the spectra of mid and side, levels and fold error, as a PNG for
// the target. The caller lets the file take its name. replace: an existing picture. Throws Failure.
// Any thread.
std::unique_ptr<TemporaryFile> drawPlot(const StereoAnalysis& analysis, const PlotCaption& caption,
                                        const std::filesystem::path& target, bool replace);
