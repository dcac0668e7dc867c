// What the effect puts out, on its way into the file and to those who look at it.
#include "host/convert/fileoutput.h"

#include "host/base/blockarithmetic.h"
#include "host/sound/heldsamples.h"

FileOutput::FileOutput(SoundWriter& target, SampleFormat targetFormat, double factor)
    : writer(target), format(targetFormat), gain(factor) {}

// Seldom anything is beyond full scale.
void FileOutput::measureRoom(int frames) {
  if (largestMagnitude(outLeft.data(), frames) > 1.0 ||
      largestMagnitude(outRight.data(), frames) > 1.0)
    room.add(outLeft.data(), outRight.data(), frames);
}

void FileOutput::take(const double* left, const double* right, int frames) {
  outLeft.assign(left, left + frames);
  outRight.assign(right, right + frames);
  if (gain != 1.0) {
    for (std::vector<double>* channel : {&outLeft, &outRight}) {
      for (double& sample : *channel) sample *= gain;
    }
  }
  if (endsAtFullScale(format)) measureRoom(frames);
  if (dither) dither->add(outLeft.data(), outRight.data(), frames);
  writer.write(outLeft.data(), outRight.data(), frames);
  if (watchers.empty()) return;
  holdSamples(format, outLeft.data(), frames);
  holdSamples(format, outRight.data(), frames);
  for (const Frames& watcher : watchers) watcher(outLeft.data(), outRight.data(), frames);
}
