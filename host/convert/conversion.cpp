// Takes one sound file through an effect.
#include "host/convert/conversion.h"

#include <memory>
#include <optional>

#include "host/base/standardstreams.h"
#include "host/convert/fileoutput.h"
#include "host/convert/level.h"
#include "host/convert/pass.h"
#include "host/convert/rendering.h"
#include "host/measure/imagewidth.h"
#include "host/plot/plot.h"
#include "host/plot/stereoanalysis.h"
#include "host/sound/dither.h"
#include "host/sound/soundreader.h"
#include "host/sound/soundwriter.h"
#include "host/state/description.h"
#include "host/state/effectadapter.h"

namespace {

SoundWriterOptions writerOptions(const SoundReader& reader, const Arguments& arguments,
                                 FileType type, const std::filesystem::path& output) {
  SoundWriterOptions options;
  options.type = type;
  options.format = arguments.format.value_or(keptFormat(reader.format(), type));
  options.sampleRate = reader.sampleRate();
  if (reader.frames()) {
    options.frames =
        *reader.frames() + Rendering::mostTailFrames(arguments.tail, reader.sampleRate());
  }
  options.quality = arguments.quality.value_or(SoundWriterOptions::kUsualQuality);
  options.replace = arguments.force;
  options.metadata = reader.metadata();
  if (!isStandardStream(output)) return options;
  options.stream.emplace();
  options.stream->descriptor = standardOutputForSound();
  options.stream->header = !arguments.raw;
  if (reader.certainFrames() && !arguments.tail.automatic) options.stream->frames = options.frames;
  return options;
}

// The gain that the arguments ask for; where the peak decides it, after a pass to find that.
double gainFor(PluginModule& module, const Arguments& arguments, SoundReader& reader,
               const std::string& name, SampleFormat format, const Progress& progress) {
  if (!arguments.peakAim) return arguments.gain;
  PeakMeter peaks;
  Pass pass(module, reader, arguments, name, format);
  Rendering rendering =
      pass.start([&](const double* l, const double* r, int frames) { peaks.add(l, r, frames); });
  rendering.watchProgress(progress);
  rendering.process();
  reader.rewind();
  return gainFor(*arguments.peakAim, peaks, format, arguments.dither);
}

}  // namespace

Conversion convert(PluginModule& module, const Arguments& arguments, const Job& job,
                   const Progress& progress) {
  const bool streams = isStandardStream(job.output);
  SoundReader reader(job.input, {arguments.salvage, streams && !arguments.peakAim});
  Conversion done;
  done.channels = reader.channels();
  done.sampleRate = reader.sampleRate();
  done.type = streams ? FileType::wav : *fileTypeOf(job.output);
  done.raw = arguments.raw;
  done.inputFormat = reader.libFormat();
  const SoundWriterOptions options = writerOptions(reader, arguments, done.type, job.output);
  done.format = options.format;
  if (job.plot) checkTarget(*job.plot, arguments.force);
  SoundWriter writer(shownOutput(job.output), options);

  const std::string name = shownInput(job.input).string();
  const int passes = arguments.peakAim ? 2 : 1;
  const auto part = [&](std::int64_t frames) { progress(frames / passes); };
  done.gain = gainFor(module, arguments, reader, name, options.format, part);
  done.dithered = arguments.dither && isDithered(options.format);

  Pass pass(module, reader, arguments, name, options.format);
  done.doublePrecision = pass.isDouble();
  done.chosenPreset = pass.chosenPreset();
  done.preset = describeCurrentPreset(pass.effect());
  done.values = describeValues(pass.effect());
  std::optional<StereoAnalysis> analysis;
  if (job.plot) analysis.emplace(reader.sampleRate(), done.gain);
  FileOutput output(writer, options.format, done.gain);
  if (done.dithered) output.ditherWith(Dither(options.format, job.input.filename().string()));
  std::optional<FileFigures> figures;
  if (arguments.json) {
    done.setting = settingOf(pass.effect());
    figures.emplace(reader.sampleRate(), done.gain);
    output.watch(
        [&](const double* l, const double* r, int frames) { figures->addAfter(l, r, frames); });
  }
  if (analysis) {
    output.watch(
        [&](const double* l, const double* r, int frames) { analysis->addAfter(l, r, frames); });
  }
  const bool canNarrow = reader.channels() > 1;  // mono cannot
  ImageWidth before;
  ImageWidth after;
  Rendering rendering = pass.start([&](const double* l, const double* r, int frames) {
    if (canNarrow) after.add(l, r, frames);
    output.take(l, r, frames);
  });
  rendering.watchInput([&](const double* l, const double* r, int frames) {
    if (canNarrow) before.add(l, r, frames);
    if (analysis) analysis->addBefore(l, r, frames);
    if (figures) figures->addBefore(l, r, frames);
  });
  rendering.watchProgress(part);
  done.framesRead = rendering.process();
  done.damage = reader.damage();
  done.sideToMidBefore = before.sideToMid();
  done.sideToMid = after.sideToMid();
  if (!arguments.state.automation) {  // which has the last word on a width
    const auto adapter = adapterFor(pass.effect());
    done.optionThatFits = adapter->optionForSide(output.sideRoom());
    done.optionAsWide = adapter->optionForSide(done.sideToMidBefore / done.sideToMid);
  }
  pass.effect().stop();
  if (figures) done.figures = figures->finish();

  // The sound takes its name only when the picture is complete as well, and the other way round.
  std::unique_ptr<TemporaryFile> picture;
  if (analysis) picture = drawPlot(*analysis, captionOf(done, job), *job.plot, arguments.force);
  writer.finish();
  if (picture) picture->keep();
  done.framesWritten = writer.framesWritten();
  done.peak = writer.peak();
  done.clippedSamples = writer.clippedSamples();
  done.clippedFold = writer.clippedFold();
  done.notKept = writer.notKept();
  return done;
}
