// Takes a sound through a started effect.
#include "host/convert/rendering.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/sound/finitesound.h"
#include "host/state/effectstate.h"

namespace {

constexpr double kQuietTime = 2.0;               // s: longer than the gaps between echoes
constexpr std::int64_t kProgressStep = 1 << 16;  // frames

TailPlan planTail(Effect& effect, const TailArgument& asked, int sampleRate) {
  const std::int64_t longest = Rendering::mostTailFrames(asked, sampleRate);
  if (!asked.automatic) return {false, longest, 0};
  const std::int64_t quiet =
      std::llround(kQuietTime * std::min(sampleRate, Rendering::kHighestTailRate));
  // An effect that knows its tail may name a longer gap.
  const std::int64_t named = std::clamp<std::int64_t>(effect.dispatch(effGetTailSize), 0, longest);
  return {true, longest, std::max(quiet, named)};
}

// Values are looked up with an effect that is not heard: those that it shows are found by setting
// them.
std::optional<Automation> automationOf(const Effect& heard, int sampleRate,
                                       const Arguments& arguments) {
  if (!arguments.state.automation) return std::nullopt;
  HostCallback callback;
  Effect asked(heard.home(), callback);
  asked.setUp(sampleRate, arguments.blockSize);
  applyState(asked, arguments.state);
  return Automation(readAutomation(asked, *arguments.state.automation), sampleRate);
}

}  // namespace

std::int64_t Rendering::mostTailFrames(const TailArgument& asked, int sampleRate) {
  return asked.automatic
             ? std::llround(kLongestAutomaticTail * std::min(sampleRate, kHighestTailRate))
             : std::llround(asked.seconds * sampleRate);
}

Rendering::Rendering(Effect& startedEffect, SoundReader& source, const Arguments& arguments,
                     bool doublePrecision, std::string name, Frames outputFrames)
    : effect(startedEffect),
      reader(source),
      sourceName(std::move(name)),
      output(std::move(outputFrames)),
      runner(BlockRunner::make(startedEffect, arguments.blockSize, doublePrecision)),
      rightChannel(startedEffect.isMono() && source.channels() > 1
                       ? std::make_unique<RightChannel>(startedEffect, source.sampleRate(),
                                                        arguments, doublePrecision)
                       : nullptr),
      automation(automationOf(startedEffect, source.sampleRate(), arguments)),
      stage([this](const double* l, const double* r, int frames) { take(l, r, frames); },
            startedEffect.latency(), planTail(startedEffect, arguments.tail, source.sampleRate())),
      left(static_cast<std::size_t>(arguments.blockSize)),
      right(left.size()),
      outLeft(left.size()),
      outRight(left.size()) {}

std::int64_t Rendering::process() {
  const int blockSize = static_cast<int>(left.size());
  std::int64_t read = 0;
  int frames = 0;
  while ((frames = reader.read(left.data(), right.data(), blockSize)) > 0) {
    checkFinite(left.data(), right.data(), frames, read, reader.sampleRate(),
                sourceName + ": holds");
    for (const Frames& watcher : inputWatchers) watcher(left.data(), right.data(), frames);
    processBlock(frames);
    read += frames;
    countProgress(frames);
  }
  stage.endOfInput(read);
  std::fill(left.begin(), left.end(), 0.0);
  std::fill(right.begin(), right.end(), 0.0);
  while (!stage.complete())
    processBlock(static_cast<int>(std::min<std::int64_t>(blockSize, stage.framesWanted())));
  if (progress) progress(uncounted);
  return read;
}

// Where a parameter changes, the effect gets a block of its own.
void Rendering::processBlock(int frames) {
  if (!automation) return processPart(0, frames);
  const auto set = [this](int parameter, float value) {
    effect.setParameter(parameter, value);
    if (rightChannel) rightChannel->effect().setParameter(parameter, value);
  };
  for (int done = 0; done < frames && !stage.complete();) {
    const int part = automation->advance(processed, frames - done, set);
    processPart(static_cast<std::size_t>(done), part);
    processed += part;
    done += part;
  }
}

void Rendering::processPart(std::size_t first, int frames) {
  double* const partLeft = outLeft.data() + first;
  double* const partRight = outRight.data() + first;
  runner->run(left.data() + first, right.data() + first, partLeft, partRight, frames);
  if (rightChannel) rightChannel->run(right.data() + first, partRight, frames);
  stage.setLatency(effect.latency());  // many effects know it only now
  stage.accept(partLeft, partRight, frames);
}

void Rendering::take(const double* l, const double* r, int frames) {
  checkFinite(l, r, frames, taken, reader.sampleRate(), sourceName + ": the effect put out");
  taken += frames;
  output(l, r, frames);
}

void Rendering::countProgress(int frames) {
  uncounted += frames;
  if (!progress || uncounted < kProgressStep) return;
  progress(uncounted);
  uncounted = 0;
}
