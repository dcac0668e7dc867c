// The part of the command line about files.
#include "host/options/fileoptions.h"

#include "host/base/text.h"
#include "host/sound/soundwriter.h"
#include "host/state/values.h"

namespace {

double parseQuality(const std::string& text) {
  const std::optional<NumberWithUnit> typed = readNumber(text);
  const double quality = typed && typed->unit.empty() ? typed->number : -1.0;
  if (quality < 0.0 || quality > SoundWriterOptions::kBestQuality)
    throw UsageFailure("--quality: \"" + text + "\" is not a number from 0 to 10");
  return quality;
}

}  // namespace

void addFileOptions(CommandLine& line, FileWords& words, Arguments& arguments) {
  line.option("IN", arguments.inputs,
              "Sound files, mono or stereo, and folders of them; -: standard input")
      .valueName("");
  line.option("-o,--output", words.output,
              "Output file or folder; the extension tells the type; -: standard output")
      .valueName("OUT");
  line.flag("-f,--force", arguments.force, "Replace outputs that are already there");
  line.option("--type", words.type,
              "Type of the files in a folder: wav, aiff, flac, caf, w64, rf64, ogg, opus, mp3")
      .valueName("TYPE");
  line.option("--format", words.format,
              "pcm16, pcm24, pcm32, float or double; default: as the input")
      .valueName("FORMAT");
  line.option("--quality", words.quality, "Of .ogg, .opus and .mp3: 0 to 10; default: 8")
      .valueName("N");
  line.flag("--raw", arguments.raw, "With -o -: samples without a header");
  line.flag("--salvage", arguments.salvage,
            "Keep what can be read of a damaged input, and say how much it is");
  line.option("--tail", words.tail,
              "Let the effect ring out: 2s, 250ms, or auto (until it is silent)")
      .valueName("TIME");
  line.option("--plot", words.plot,
              "Picture of the stereo image before and after (PNG file or folder)")
      .valueName("PNG");
}

void takeFileOptions(const CommandLine& line, const FileWords& words, Arguments& arguments) {
  arguments.output = line.given("--output", words.output);
  arguments.plot = line.given("--plot", words.plot);
  arguments.type = line.given("--type", words.type);
  if (arguments.type) {
    arguments.type = lowerCase(*arguments.type);
    if (!fileTypeNamed(*arguments.type)) {
      throw UsageFailure("--type: \"" + words.type +
                         "\" is not wav, aiff, flac, caf, w64, rf64, ogg, opus or mp3");
    }
  }
  if (line.has("--quality")) arguments.quality = parseQuality(words.quality);
  if (line.has("--format")) {
    arguments.format = sampleFormatNamed(words.format);
    if (!arguments.format) {
      throw UsageFailure("--format: \"" + words.format +
                         "\" is not pcm16, pcm24, pcm32, float or double");
    }
  }
  if (line.has("--tail")) {
    arguments.tail.automatic = words.tail == "auto";
    if (!arguments.tail.automatic) arguments.tail.seconds = parseSeconds("--tail", words.tail);
  }
}
