// The picture of what an effect did to the stereo image.
#pragma once

#include <memory>

#include "host/base/temporaryfile.h"
#include "host/cli/conversion.h"
#include "host/cli/jobs.h"
#include "host/plot/stereoanalysis.h"

// Goniometers before and after, the spectra of mid and side, levels and fold error, as a PNG for job.plot. The caller
// lets the file take its name. replace: an existing picture. Throws Failure. Any thread.
std::unique_ptr<TemporaryFile> drawPlot(const StereoAnalysis& analysis, const Conversion& done, const Job& job,
                                        bool replace);
