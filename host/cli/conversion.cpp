// Takes one sound file through an effect.
#include "host/cli/conversion.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "host/base/text.h"
#include "host/cli/description.h"
#include "host/plot/plot.h"
#include "host/plot/stereoanalysis.h"
#include "host/sound/finitesound.h"
#include "host/sound/outputstage.h"
#include "host/sound/soundreader.h"
#include "host/sound/soundwriter.h"
#include "host/state/effectstate.h"
#include "host/vst/blockrunner.h"
#include "host/vst/effect.h"

namespace {

// s: an effect that never falls silent must not fill the disk
constexpr double kLongestAutomaticTail = 30.0;
constexpr double kQuietTime = 2.0;               // s: longer than the gaps between echoes
constexpr std::int64_t kProgressStep = 1 << 16;  // frames

TailPlan planTail(Effect& effect, const TailArgument& asked, int sampleRate) {
  const auto frames = [&](double seconds) {
    return static_cast<std::int64_t>(std::llround(seconds * sampleRate));
  };
  if (!asked.automatic) return {false, frames(asked.seconds), 0};
  const std::int64_t longest = frames(kLongestAutomaticTail);
  // An effect that knows its tail may name a longer gap.
  const std::int64_t named = std::clamp<std::int64_t>(effect.dispatch(effGetTailSize), 0, longest);
  return {true, longest, std::max(frames(kQuietTime), named)};
}

// One run from the first frame to the last.
class Run {
 public:
  Run(Effect& startedEffect, SoundReader& source, SoundWriter& target, SampleFormat targetFormat,
      const Arguments& arguments, const Job& files, Console& display)
      : effect(startedEffect),
        reader(source),
        writer(target),
        format(targetFormat),
        gain(arguments.gain),
        job(files),
        console(display),
        runner(BlockRunner::make(startedEffect, arguments.blockSize, arguments.doublePrecision)),
        stage([this](const double* l, const double* r, int frames) { take(l, r, frames); },
              startedEffect.latency(),
              planTail(startedEffect, arguments.tail, source.sampleRate())),
        left(static_cast<std::size_t>(arguments.blockSize)),
        right(left.size()),
        outLeft(left.size()),
        outRight(left.size()) {
    if (job.plot) analysis = std::make_unique<StereoAnalysis>(source.sampleRate(), gain);
  }

  // Returns how many frames were read.
  std::int64_t process() {
    const int blockSize = static_cast<int>(left.size());
    std::int64_t read = 0;
    int frames = 0;
    while ((frames = reader.read(left.data(), right.data(), blockSize)) > 0) {
      checkFinite(left.data(), right.data(), frames, read, reader.sampleRate(),
                  job.input.string() + ": holds");
      if (analysis) analysis->addBefore(left.data(), right.data(), frames);
      processBlock(frames);
      read += frames;
      showProgress(frames);
    }
    stage.endOfInput(read);
    std::fill(left.begin(), left.end(), 0.0);
    std::fill(right.begin(), right.end(), 0.0);
    while (!stage.complete())
      processBlock(static_cast<int>(std::min<std::int64_t>(blockSize, stage.framesWanted())));
    console.advance(unshown);
    return read;
  }

  const StereoAnalysis* image() const { return analysis.get(); }

 private:
  void processBlock(int frames) {
    runner->run(left.data(), right.data(), outLeft.data(), outRight.data(), frames);
    stage.setLatency(effect.latency());  // many effects know it only now
    stage.accept(outLeft.data(), outRight.data(), frames);
  }

  void take(const double* l, const double* r, int frames) {
    checkFinite(l, r, frames, taken, reader.sampleRate(),
                job.input.string() + ": the effect put out");
    taken += frames;
    if (gain == 1.0 && !analysis) return writer.write(l, r, frames);
    for (int frame = 0; frame < frames; ++frame) {
      const double outL = l[frame] * gain;
      const double outR = r[frame] * gain;
      writer.write(&outL, &outR, 1);
      if (!analysis) continue;
      const double heldL = heldSample(format, outL);
      const double heldR = heldSample(format, outR);
      analysis->addAfter(&heldL, &heldR, 1);
    }
  }

  void showProgress(int frames) {
    unshown += frames;
    if (unshown < kProgressStep) return;
    console.advance(unshown);
    unshown = 0;
  }

  Effect& effect;
  SoundReader& reader;
  SoundWriter& writer;
  SampleFormat format;  // of the file that is written
  double gain;
  const Job& job;
  Console& console;
  std::unique_ptr<BlockRunner> runner;
  OutputStage stage;
  std::unique_ptr<StereoAnalysis> analysis;
  std::vector<double> left;
  std::vector<double> right;
  std::vector<double> outLeft;
  std::vector<double> outRight;
  std::int64_t taken = 0;    // frames for the file
  std::int64_t unshown = 0;  // frames since the progress was shown
};

SoundWriterOptions writerOptions(const SoundReader& reader, const Arguments& arguments,
                                 FileType type) {
  SoundWriterOptions options;
  options.type = type;
  options.format = arguments.format.value_or(keptFormat(reader.format(), type));
  options.sampleRate = reader.sampleRate();
  const double tail = arguments.tail.automatic ? kLongestAutomaticTail : arguments.tail.seconds;
  if (reader.frames()) options.frames = *reader.frames() + std::llround(tail * reader.sampleRate());
  options.replace = arguments.force;
  options.texts = reader.texts();
  return options;
}

}  // namespace

Conversion convert(PluginModule& module, const Arguments& arguments, const Job& job,
                   Console& console) {
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
  effect.checkTakes(reader.channels(), job.input.string());
  effect.setUp(reader.sampleRate(), arguments.blockSize);
  applyState(effect, arguments.state);  // its notes were shown when the state was tried
  done.preset = describeCurrentPreset(effect);
  done.values = describeValues(effect);
  effect.start(arguments.doublePrecision);
  effect.checkCanProcess(arguments.doublePrecision);
  Run run(effect, reader, writer, options.format, arguments, job, console);
  done.framesRead = run.process();
  effect.stop();

  // The sound takes its name only when the picture is complete as well, and the other way round.
  std::unique_ptr<TemporaryFile> picture;
  if (run.image() != nullptr)
    picture = drawPlot(*run.image(), captionOf(done, job), *job.plot, arguments.force);
  writer.finish();
  if (picture) picture->keep();
  done.framesWritten = writer.framesWritten();
  done.peak = writer.peak();
  done.clippedSamples = writer.clippedSamples();
  done.clippedFold = writer.clippedFold();
  return done;
}
