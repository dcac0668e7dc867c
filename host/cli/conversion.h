// Takes one sound file through an effect.
#pragma once

#include <cstdint>
#include <string>

#include "host/cli/arguments.h"
#include "host/cli/console.h"
#include "host/cli/jobs.h"
#include "host/vst/pluginmodule.h"

// What was done, for the report.
struct Conversion {
  int channels = 0;
  int sampleRate = 0;  // Hz
  std::int64_t framesRead = 0;
  std::int64_t framesWritten = 0;
  FileType type = FileType::wav;
  SampleFormat format = SampleFormat::pcm16;
  double gain = 1.0;  // factor
  double peak = 0.0;  // of what was written, 1 is full scale
  std::int64_t clippedSamples = 0;
  std::string preset;  // as describeCurrentPreset
  std::string values;  // as describeValues
};

// Makes an effect of its own, in the state that the arguments ask for. Memory does not grow with the file. Throws
// Failure, and leaves no output then. Any thread; several conversions may share a module.
Conversion convert(PluginModule& module, const Arguments& arguments, const Job& job, Console& console);

// The report's lines, and the warning about clipping (empty where nothing was clipped).
std::string reportOf(const Conversion& done, const Job& job);
std::string clippingWarning(const Conversion& done, const Job& job);
