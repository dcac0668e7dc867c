// What the effect puts out, on its way into the file and the picture: both have it at the file's
// level.
#pragma once

#include <vector>

#include "host/plot/stereoanalysis.h"
#include "host/sound/soundwriter.h"

class FileOutput {
 public:
  // target: outlives it, as the picture does; format: its own. gain: a factor. picture: null where
  // none is wanted.
  FileOutput(SoundWriter& target, SampleFormat format, double gain, StereoAnalysis* picture);

  void take(const double* left, const double* right, int frames);

 private:
  SoundWriter& writer;
  SampleFormat format;
  double gain;
  StereoAnalysis* analysis;
  std::vector<double> outLeft;  // at the file's level
  std::vector<double> outRight;
};
