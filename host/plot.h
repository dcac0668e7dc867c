// The picture of what an effect did to the stereo image.
#pragma once

#include <memory>

#include "host/conversion.h"
#include "host/jobs.h"
#include "host/stereoanalysis.h"
#include "host/temporaryfile.h"

// Goniometers before and after, the spectra of mid and side, levels and fold error, as a PNG for job.plot. The caller
// lets the file take its name. replace: an existing picture. Throws Failure. Any thread.
std::unique_ptr<TemporaryFile> drawPlot(const StereoAnalysis& analysis, const Conversion& done, const Job& job,
                                        bool replace);
