// The part of the command line about files.
#include "host/options/fileoptions.h"

#include "host/options/given.h"
#include "host/state/values.h"

void addFileOptions(CLI::App& app, FileWords& words, Arguments& arguments) {
  app.add_option("IN", arguments.inputs, "Sound files, mono or stereo")->type_name("");
  app.add_option("-o,--output", words.output, "Output file or folder: .wav, .aif(f) or .flac")
      ->type_name("OUT");
  app.add_flag("-f,--force", arguments.force, "Replace outputs that are already there");
  app.add_option("--format", words.format,
                 "pcm16, pcm24, pcm32, float or double; default: as the input")
      ->type_name("FORMAT");
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
