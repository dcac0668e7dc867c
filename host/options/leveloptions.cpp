// The part of the command line about the level of what is written.
#include "host/options/leveloptions.h"

#include "host/sound/dither.h"
#include "host/state/values.h"

void addLevelOptions(CommandLine& line, LevelWords& words, Arguments& arguments) {
  const std::string level = "Level";
  line.option("--gain", words.gain,
              "Gain after the effect, e.g. -3dB; auto: softer until nothing clips")
      .group(level)
      .valueName("DB");
  line.option("--normalize", words.normalize, "Bring the highest peak to this level, e.g. -1dB")
      .group(level)
      .valueName("DB");
  line.flag("--dither", arguments.dither,
            "Dither (TPDF) what is rounded to 8, 16 or 24 bits; cancels in the mono fold")
      .group(level);
}

void takeLevelOptions(const CommandLine& line, const LevelWords& words, Arguments& arguments) {
  if (line.has("--normalize")) {
    if (line.has("--gain"))
      throw UsageFailure("--gain and --normalize both set the level: leave one out");
    arguments.peakAim = PeakAim{parseLevel("--normalize", words.normalize), true};
  }
  if (line.has("--gain")) {
    if (words.gain == "auto") {
      if (arguments.editor) throw UsageFailure("--gain auto is for what is written, not played");
      arguments.peakAim = PeakAim{1.0, false};
    } else {
      arguments.gain = parseGain("--gain", words.gain);
    }
  }
  if (arguments.dither && arguments.format && !isDithered(*arguments.format)) {
    throw UsageFailure("--dither is for 8, 16 and 24 bits: leave it out with " +
                       textOf(*arguments.format) + " samples");
  }
}
