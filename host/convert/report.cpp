// What was done with a file, in words.
#include "host/convert/report.h"

#include <algorithm>
#include <cmath>

#include "host/base/text.h"

namespace {

double filePeak(const Conversion& done) {
  return endsAtFullScale(done.format) ? std::min(done.peak, 1.0) : done.peak;
}

}  // namespace

std::string reportOf(const Conversion& done, const Job& job) {
  const auto lengthText = [&](std::int64_t frames) {
    return durationText(frames, done.sampleRate);
  };
  std::string text = onOneLine(job.input.string()) + ": " + channelText(done.channels) + ", " +
                     std::to_string(done.sampleRate) + " Hz, " + std::to_string(done.framesRead) +
                     " frames (" + lengthText(done.framesRead) + ")";
  if (!done.preset.empty()) text += ", " + done.preset;
  if (!done.values.empty()) text += ": " + done.values;
  text += "\n  -> " + onOneLine(job.output.string()) + ": " + textOf(done.format) + " " +
          textOf(done.type);
  if (done.framesWritten != done.framesRead) {
    text += ", " + std::to_string(done.framesWritten) + " frames (" +
            lengthText(done.framesWritten) + ")";
  }
  if (done.gain != 1.0) text += ", gain " + decibelText(done.gain) + " dB";
  text += ", peak " + decibelText(filePeak(done)) + " dBFS";
  if (job.plot) text += ", picture " + onOneLine(job.plot->string());
  return text;
}

std::string clippingWarning(const Conversion& done, const Job& job) {
  if (done.clippedSamples == 0) return {};
  // Rounded away from full scale, so that the advice holds.
  const double advised = std::floor(-20.0 * std::log10(done.peak / done.gain) * 10.0) / 10.0;
  std::string text = job.output.string() + ": peak " + decibelText(done.peak) +
                     " dBFS is beyond full scale, " + std::to_string(done.clippedSamples) +
                     (done.clippedSamples == 1 ? " sample" : " samples") + " clipped";
  if (done.clippedFold > 0.0)
    text += "; clipping breaks the mono fold by " + decibelText(done.clippedFold) + " dBFS";
  text += "; use --gain " + formatted("%.1fdB", advised);
  if (canHold(done.type, SampleFormat::float32)) text += " or --format float";
  return text;
}

PlotCaption captionOf(const Conversion& done, const Job& job) {
  std::string details = channelText(done.channels) + ", " + std::to_string(done.sampleRate) +
                        " Hz, " + durationText(done.framesRead, done.sampleRate);
  if (!done.preset.empty()) details += "   |   " + done.preset;
  if (!done.values.empty()) details += "   |   " + done.values;
  return {job.input.filename().string(), details};
}
