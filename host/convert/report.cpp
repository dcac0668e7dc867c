// What was done with a file, in words.
#include "host/convert/report.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/base/standardstreams.h"
#include "host/base/text.h"
#include "host/measure/imagewidth.h"
#include "host/state/values.h"

namespace {

double filePeak(const Conversion& done) {
  return endsAtFullScale(done.format) ? std::min(done.peak, 1.0) : done.peak;
}

// "a", "a or b", "a, b or c".
std::string listOf(const std::vector<std::string>& ways) {
  std::string text;
  for (std::size_t way = 0; way < ways.size(); ++way) {
    if (way != 0) text += way + 1 == ways.size() ? " or " : ", ";
    text += ways[way];
  }
  return text;
}

// With another option a preset is not chosen any more.
std::string advice(const Conversion& done, const std::string& option) {
  return done.chosenPreset ? "--preset \"" + *done.chosenPreset + "\" " + option : option;
}

std::string clippingWarning(const Conversion& done, const Job& job) {
  if (done.clippedSamples == 0) return {};
  // Rounded away from full scale, so that the advice holds.
  const double advised = std::floor(-20.0 * std::log10(done.peak / done.gain) * 10.0) / 10.0;
  std::string text = shownOutput(job.output).string() + ": peak " + decibelText(done.peak) +
                     " dBFS is beyond full scale, " + std::to_string(done.clippedSamples) +
                     (done.clippedSamples == 1 ? " sample" : " samples") + " clipped";
  if (done.clippedFold > 0.0)
    text += "; clipping breaks the mono fold by " + decibelText(done.clippedFold) + " dBFS";
  std::vector<std::string> ways = {
      advised < -kHighestGain ? "--gain auto" : "--gain " + formatted("%.1fdB", advised)};
  if (!done.optionThatFits.empty()) ways.push_back(advice(done, done.optionThatFits));
  if (canHold(done.type, SampleFormat::float32)) ways.emplace_back("--format float");
  return text + "; use " + listOf(ways);
}

std::string narrowingWarning(const Conversion& done, const Job& job) {
  if (!isNarrower(done.sideToMid, done.sideToMidBefore)) return {};
  const std::string start = shownOutput(job.output).string() + ": ";
  if (std::isinf(done.sideToMidBefore) && done.peak == 0.0)
    return start + "is silent: left and right of the input are opposite, so that it has no mid";
  std::string text = start + "is narrower than the input: side to mid ";
  text += done.sideToMid > 0.0 ? decibelText(done.sideToMid) + " dB" : "nothing (mono)";
  text += ", before ";
  text += std::isinf(done.sideToMidBefore) ? "a side without a mid"
                                           : decibelText(done.sideToMidBefore) + " dB";
  if (!done.optionAsWide.empty()) text += "; as wide is " + advice(done, done.optionAsWide);
  return text;
}

std::string damageWarning(const Conversion& done, const Job& job) {
  if (done.damage.empty()) return {};
  return shownInput(job.input).string() + ": " + done.damage + "; kept " +
         std::to_string(done.framesRead) + " frames (" +
         durationText(done.framesRead, done.sampleRate) + ")";
}

std::string notKeptWarning(const Conversion& done, const Job& job) {
  std::string text;
  for (const std::string& name : done.notKept) text += (text.empty() ? "" : ", ") + name;
  if (text.empty()) return text;
  const std::string holder = isStandardStream(job.output) ? "a stream" : textOf(done.type);
  return shownOutput(job.output).string() + ": " + holder + " cannot keep " + text;
}

}  // namespace

std::string reportOf(const Conversion& done, const Job& job) {
  const auto lengthText = [&](std::int64_t frames) {
    return durationText(frames, done.sampleRate);
  };
  std::string text = onOneLine(shownInput(job.input).string()) + ": " + channelText(done.channels) +
                     ", " + std::to_string(done.sampleRate) + " Hz, " +
                     std::to_string(done.framesRead) + " frames (" + lengthText(done.framesRead) +
                     ")";
  if (!done.preset.empty()) text += ", " + done.preset;
  if (done.chosenPreset) text += " (chosen since none was named)";
  if (!done.values.empty()) text += ": " + done.values;
  text += "\n  -> " + onOneLine(shownOutput(job.output).string()) + ": " + textOf(done.format) +
          " " + (done.raw ? "raw" : textOf(done.type));
  if (done.framesWritten != done.framesRead) {
    text += ", " + std::to_string(done.framesWritten) + " frames (" +
            lengthText(done.framesWritten) + ")";
  }
  if (done.gain != 1.0) text += ", gain " + decibelText(done.gain) + " dB";
  text += ", peak " + decibelText(filePeak(done)) + " dBFS";
  if (done.dithered) text += ", dithered";
  if (done.doublePrecision) text += ", processed in double precision";
  if (job.plot) text += ", picture " + onOneLine(job.plot->string());
  return text;
}

std::string warningsOf(const Conversion& done, const Job& job) {
  std::string lines;
  for (const std::string& text : {damageWarning(done, job), clippingWarning(done, job),
                                  narrowingWarning(done, job), notKeptWarning(done, job)}) {
    if (!text.empty()) lines += (lines.empty() ? "" : "\n") + onOneLine(text);
  }
  return lines;
}

PlotCaption captionOf(const Conversion& done, const Job& job) {
  std::string details = channelText(done.channels) + ", " + std::to_string(done.sampleRate) +
                        " Hz, " + durationText(done.framesRead, done.sampleRate);
  if (!done.preset.empty()) details += "   |   " + done.preset;
  if (!done.values.empty()) details += "   |   " + done.values;
  return {shownInput(job.input).filename().string(), details};
}
