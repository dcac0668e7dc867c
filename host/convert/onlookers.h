// Those who look at a sound on its way through an effect: the picture, the figures, and who asks
// whether it has become narrower.
#pragma once

#include <memory>
#include <optional>

#include "host/base/temporaryfile.h"
#include "host/convert/filefigures.h"
#include "host/convert/fileoutput.h"
#include "host/convert/report.h"
#include "host/measure/imagewidth.h"
#include "host/plot/stereoanalysis.h"

// For one file; those that the arguments ask for. One thread.
class Onlookers {
 public:
  // channels: of the input. gain: of what is written, a factor.
  Onlookers(const Arguments& arguments, const Job& job, int channels, int sampleRate, double gain);

  // What goes into the effect, what comes out of it, and what the file holds.
  void seeInput(const double* left, const double* right, int frames);
  void seeOutput(const double* left, const double* right, int frames);
  void watch(FileOutput& output);  // outlived by this

  // After the last frame, once.
  void tell(Conversion& done);
  // Null where no picture is asked for. Throws Failure.
  std::unique_ptr<TemporaryFile> draw(const Conversion& done, const Job& job, bool replace) const;

 private:
  bool canNarrow;  // mono cannot
  ImageWidth before;
  ImageWidth after;
  std::optional<StereoAnalysis> picture;
  std::optional<FileFigures> figures;
};
