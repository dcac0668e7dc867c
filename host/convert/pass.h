// One pass of a file through an effect of its own.
#pragma once

#include <optional>
#include <string>

#include "host/convert/rendering.h"
#include "host/options/arguments.h"
#include "host/sound/soundreader.h"
#include "host/vst/effect.h"

// The effect is made in the state that the arguments ask for, so that every pass begins alike. One
// thread.
class Pass {
 public:
  // reader: at its beginning; outlives the pass. name: of the sound, for messages. output: the
  // format that the result gets. Throws Failure.
  Pass(PluginModule& module, SoundReader& reader, const Arguments& arguments, std::string name,
       SampleFormat output);

  Effect& effect() { return made; }
  bool isDouble() const { return precise; }
  // Chosen since nobody named one.
  const std::optional<std::string>& chosenPreset() const { return preset; }

  // Switches the effect on. Once.
  Rendering start(Rendering::Frames output);

 private:
  SoundReader& source;
  const Arguments& arguments;
  std::string sourceName;
  HostCallback callback;
  Effect made;
  bool precise;
  std::optional<std::string> preset;
};
