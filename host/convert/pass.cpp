// One pass of a file through an effect of its own.
#include "host/convert/pass.h"

#include <utility>

#include "host/state/effectstate.h"

namespace {

// Whether single precision loses some of what such a file holds.
bool exceedsSingle(SampleFormat format) {
  return format == SampleFormat::pcm32 || format == SampleFormat::float64;
}

bool isToBeDouble(const Effect& effect, Precision asked, SampleFormat input, SampleFormat output) {
  if (asked != Precision::automatic) return asked == Precision::twice;
  return effect.canProcessDouble() && (exceedsSingle(input) || exceedsSingle(output));
}

}  // namespace

Pass::Pass(PluginModule& module, SoundReader& reader, const Arguments& asked, std::string name,
           SampleFormat output)
    : source(reader),
      arguments(asked),
      sourceName(std::move(name)),
      made(module, callback),
      precise(isToBeDouble(made, asked.precision, reader.format(), output)) {
  made.checkCanProcess(precise);
  if (!made.isMono()) made.checkTakes(source.channels(), sourceName);
  made.setUp(source.sampleRate(), arguments.blockSize);
  preset = choosePresetForFile(made, arguments.state);
  applyState(made, arguments.state);  // its notes were shown when the state was tried
}

Rendering Pass::start(Rendering::Frames output) {
  made.start(precise);
  made.checkCanProcess(precise);
  return {made, source, arguments, precise, sourceName, std::move(output)};
}
