// Takes one sound file through an effect.
#include "host/convert/conversion.h"

#include <memory>
#include <optional>

#include "host/convert/fileoutput.h"
#include "host/convert/rendering.h"
#include "host/plot/plot.h"
#include "host/plot/stereoanalysis.h"
#include "host/sound/soundreader.h"
#include "host/sound/soundwriter.h"
#include "host/state/description.h"
#include "host/state/effectstate.h"
#include "host/vst/effect.h"

namespace {

SoundWriterOptions writerOptions(const SoundReader& reader, const Arguments& arguments,
                                 FileType type) {
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
  options.texts = reader.texts();
  return options;
}

}  // namespace

Conversion convert(PluginModule& module, const Arguments& arguments, const Job& job,
                   const Progress& progress) {
  SoundReader reader(job.input);
  Conversion done;
  done.channels = reader.channels();
  done.sampleRate = reader.sampleRate();
  done.type = *fileTypeOf(job.output);
  done.gain = arguments.gain;
  const SoundWriterOptions options = writerOptions(reader, arguments, done.type);
  done.format = options.format;
  if (job.plot) checkTarget(*job.plot, arguments.force);
  SoundWriter writer(job.output, options);

  HostCallback callback;
  Effect effect(module, callback);
  effect.checkCanProcess(arguments.doublePrecision);
  if (!effect.isMono()) effect.checkTakes(reader.channels(), job.input.string());
  effect.setUp(reader.sampleRate(), arguments.blockSize);
  applyState(effect, arguments.state);  // its notes were shown when the state was tried
  done.preset = describeCurrentPreset(effect);
  done.values = describeValues(effect);
  effect.start(arguments.doublePrecision);
  effect.checkCanProcess(arguments.doublePrecision);
  std::optional<StereoAnalysis> analysis;
  if (job.plot) analysis.emplace(reader.sampleRate(), arguments.gain);
  FileOutput output(writer, options.format, arguments.gain);
  Rendering rendering(
      effect, reader, arguments, job.input.string(),
      [&](const double* l, const double* r, int frames) { output.take(l, r, frames); });
  if (analysis) {
    rendering.watchInput(
        [&](const double* l, const double* r, int frames) { analysis->addBefore(l, r, frames); });
    output.watch(
        [&](const double* l, const double* r, int frames) { analysis->addAfter(l, r, frames); });
  }
  rendering.watchProgress(progress);
  done.framesRead = rendering.process();
  effect.stop();

  // The sound takes its name only when the picture is complete as well, and the other way round.
  std::unique_ptr<TemporaryFile> picture;
  if (analysis) picture = drawPlot(*analysis, captionOf(done, job), *job.plot, arguments.force);
  writer.finish();
  if (picture) picture->keep();
  done.framesWritten = writer.framesWritten();
  done.peak = writer.peak();
  done.clippedSamples = writer.clippedSamples();
  done.clippedFold = writer.clippedFold();
  return done;
}
