// Takes one sound file through an effect.
#include "host/convert/conversion.h"

#include "host/base/standardstreams.h"
#include "host/convert/fileoutput.h"
#include "host/convert/level.h"
#include "host/convert/onlookers.h"
#include "host/convert/pass.h"
#include "host/convert/rendering.h"
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

void tellHowItIsSet(Pass& pass, const Arguments& arguments, Conversion& done) {
  done.doublePrecision = pass.isDouble();
  done.chosenPreset = pass.chosenPreset();
  done.preset = describeCurrentPreset(pass.effect());
  done.values = describeValues(pass.effect());
  if (arguments.json) done.setting = settingOf(pass.effect());
}

// What would have been better; where parameters move, an option has not the last word on the width.
void tellAdvice(Effect& effect, const Arguments& arguments, double sideRoom, Conversion& done) {
  if (arguments.state.automation) return;
  const auto adapter = adapterFor(effect);
  done.optionThatFits = adapter->optionForSide(sideRoom);
  done.optionAsWide = adapter->optionForSide(done.sideToMidBefore / done.sideToMid);
}

void tellWhatWasWritten(const SoundWriter& writer, Conversion& done) {
  done.framesWritten = writer.framesWritten();
  done.peak = writer.peak();
  done.clippedSamples = writer.clippedSamples();
  done.clippedFold = writer.clippedFold();
  done.notKept = writer.notKept();
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
  tellHowItIsSet(pass, arguments, done);
  Onlookers onlookers(arguments, job, reader.channels(), reader.sampleRate(), done.gain);
  FileOutput output(writer, options.format, done.gain);
  if (done.dithered) output.ditherWith(Dither(options.format, job.input.filename().string()));
  onlookers.watch(output);
  Rendering rendering = pass.start([&](const double* l, const double* r, int frames) {
    onlookers.seeOutput(l, r, frames);
    output.take(l, r, frames);
  });
  rendering.watchInput(
      [&](const double* l, const double* r, int frames) { onlookers.seeInput(l, r, frames); });
  rendering.watchProgress(part);
  done.framesRead = rendering.process();
  done.damage = reader.damage();
  onlookers.tell(done);
  tellAdvice(pass.effect(), arguments, output.sideRoom(), done);
  pass.effect().stop();

  // The sound takes its name only when the picture is complete as well, and the other way round.
  const auto picture = onlookers.draw(done, job, arguments.force);
  writer.finish();
  if (picture) picture->keep();
  tellWhatWasWritten(writer, done);
  return done;
}
