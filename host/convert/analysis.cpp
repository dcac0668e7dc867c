// The figures of a sound file that is only looked at.
#include "host/convert/analysis.h"

#include <cmath>
#include <vector>

#include "host/base/standardstreams.h"
#include "host/base/text.h"
#include "host/sound/finitesound.h"
#include "host/sound/formattext.h"
#include "host/sound/soundreader.h"

namespace {

constexpr int kBlockFrames = 16384;

std::string sineLevel(double rms) {
  return decibelText(sineOf(rms)) + " dBFS";
}

std::string loudnessText(const Loudness::Result& loudness) {
  std::string text;
  if (loudness.truePeak) text += ", true peak " + decibelText(*loudness.truePeak) + " dBTP";
  if (loudness.integrated) text += ", loudness " + formatted("%.1f LUFS", *loudness.integrated);
  return text;
}

}  // namespace

Analysis analyse(const std::filesystem::path& file, bool salvage, const Progress& progress) {
  SoundReader reader(file, {salvage, true});
  Analysis analysis{reader.libFormat(), reader.channels(), reader.sampleRate(), {}, {}};
  FigureMeter meter(analysis.channels, analysis.sampleRate);
  std::vector<double> left(kBlockFrames);
  std::vector<double> right(kBlockFrames);
  std::int64_t read = 0;
  int frames = 0;
  while ((frames = reader.read(left.data(), right.data(), kBlockFrames)) > 0) {
    checkFinite(left.data(), right.data(), frames, read, analysis.sampleRate,
                shownInput(file).string() + ": holds");
    meter.add(left.data(), right.data(), frames);
    read += frames;
    if (progress) progress(frames);
  }
  analysis.figures = meter.finish();
  analysis.damage = reader.damage();
  return analysis;
}

std::string reportOf(const Analysis& analysis, const std::filesystem::path& file) {
  const StereoLevels& levels = analysis.figures.levels;
  return onOneLine(shownInput(file).string()) + ": " + channelText(analysis.channels) + ", " +
         std::to_string(analysis.sampleRate) + " Hz, " + std::to_string(levels.frames()) +
         " frames (" + durationText(levels.frames(), analysis.sampleRate) + "), " +
         encodingText(analysis.libFormat) + " " + fileTypeText(analysis.libFormat) + "\n  peak " +
         decibelText(levels.peak()) + " dBFS" + loudnessText(analysis.figures.loudness) +
         "\n  mid " + sineLevel(levels.mid()) + ", side " + sineLevel(levels.side()) +
         ", correlation " +
         formatted("%.2f", std::round(levels.correlation() * 100.0) / 100.0 + 0.0);
}

std::string damageWarning(const Analysis& analysis, const std::filesystem::path& file) {
  if (analysis.damage.empty()) return {};
  const std::int64_t frames = analysis.figures.levels.frames();
  return shownInput(file).string() + ": " + analysis.damage + "; measured " +
         std::to_string(frames) + " frames (" + durationText(frames, analysis.sampleRate) + ")";
}
