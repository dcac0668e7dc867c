// What the effect puts out, on its way into the file and the picture.
#include "host/convert/fileoutput.h"

#include "host/sound/blockarithmetic.h"

FileOutput::FileOutput(SoundWriter& target, SampleFormat targetFormat, double factor,
                       StereoAnalysis* picture)
    : writer(target), format(targetFormat), gain(factor), analysis(picture) {}

void FileOutput::take(const double* left, const double* right, int frames) {
  outLeft.assign(left, left + frames);
  outRight.assign(right, right + frames);
  for (std::vector<double>* channel : {&outLeft, &outRight}) {
    for (double& sample : *channel) sample *= gain;
  }
  writer.write(outLeft.data(), outRight.data(), frames);
  if (analysis == nullptr) return;
  holdSamples(format, outLeft.data(), frames);
  holdSamples(format, outRight.data(), frames);
  analysis->addAfter(outLeft.data(), outRight.data(), frames);
}
