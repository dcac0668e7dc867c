// The part of the command line about files.
#include "host/options/fileoptions.h"

#include "host/base/text.h"
#include "host/options/given.h"
#include "host/sound/soundwriter.h"
#include "host/state/values.h"

namespace {

double parseQuality(const std::string& text) {
  double quality = -1.0;
  const bool isNumber = CLI::detail::lexical_cast(text, quality);
  if (!isNumber || !(quality >= 0.0 && quality <= SoundWriterOptions::kBestQuality))
    throw UsageFailure("--quality: \"" + text + "\" is not a number from 0 to 10");
  return quality;
}

}  // namespace

void addFileOptions(CLI::App& app, FileWords& words, Arguments& arguments) {
  app.add_option("IN", arguments.inputs,
                 "Sound files, mono or stereo, and folders of them; -: standard input")
      ->type_name("");
  app.add_option("-o,--output", words.output,
                 "Output file or folder; the extension tells the type; -: standard output")
      ->type_name("OUT");
  app.add_flag("-f,--force", arguments.force, "Replace outputs that are already there");
  app.add_option("--type", words.type,
                 "Type of the files in a folder: wav, aiff, flac, caf, w64, rf64, ogg, opus, mp3")
      ->type_name("TYPE");
  app.add_option("--format", words.format,
                 "pcm16, pcm24, pcm32, float or double; default: as the input")
      ->type_name("FORMAT");
  app.add_option("--quality", words.quality, "Of .ogg, .opus and .mp3: 0 to 10; default: 8")
      ->type_name("N");
  app.add_flag("--raw", arguments.raw, "With -o -: samples without a header");
  app.add_flag("--salvage", arguments.salvage,
               "Keep what can be read of a damaged input, and say how much it is");
  app.add_option("--tail", words.tail,
                 "Let the effect ring out: 2s, 250ms, or auto (until it is silent)")
      ->type_name("TIME");
  app.add_option("--plot", words.plot,
                 "Picture of the stereo image before and after (PNG file or folder)")
      ->type_name("PNG");
}

void takeFileOptions(const CLI::App& app, const FileWords& words, Arguments& arguments) {
  arguments.output = given(app, "--output", words.output);
  arguments.plot = given(app, "--plot", words.plot);
  arguments.type = given(app, "--type", words.type);
  if (arguments.type) {
    arguments.type = lowerCase(*arguments.type);
    if (!fileTypeNamed(*arguments.type)) {
      throw UsageFailure("--type: \"" + words.type +
                         "\" is not wav, aiff, flac, caf, w64, rf64, ogg, opus or mp3");
    }
  }
  if (app.count("--quality") != 0) arguments.quality = parseQuality(words.quality);
  if (app.count("--format") != 0) {
    arguments.format = sampleFormatNamed(words.format);
    if (!arguments.format) {
      throw UsageFailure("--format: \"" + words.format +
                         "\" is not pcm16, pcm24, pcm32, float or double");
    }
  }
  if (app.count("--tail") != 0) {
    arguments.tail.automatic = words.tail == "auto";
    if (!arguments.tail.automatic) arguments.tail.seconds = parseSeconds("--tail", words.tail);
  }
}
