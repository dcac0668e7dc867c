// One VST 2.4 effect, driven as a careful host drives it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/vst/hostcallback.h"
#include "host/vst/pluginmodule.h"

// Life: made (open), set up, started, processed, stopped, ended (close). One thread at a time, but
// that between starting and stopping another one may process while the first calls the rest.
// Making, setting up and ending take the module's life lock themselves, so several effects of a
// module may live on several threads.
class Effect {
 public:
  using Bytes = std::vector<unsigned char>;

  // callback: the caller's, outlives the effect. Throws Failure where no sound effect comes to be.
  Effect(PluginModule& module, HostCallback& callback);
  ~Effect();
  Effect(const Effect&) = delete;
  Effect& operator=(const Effect&) = delete;

  const AEffect& record() const { return *effect; }
  const std::string& plugin() const { return name; }  // the file's name, for messages
  const std::filesystem::path& path() const { return module.path(); }
  PluginModule& home() const { return module; }  // for another effect of the same kind

  // Any opcode, under the life lock.
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                     float opt = 0.0F);
  // A text opcode's text, without blanks at its ends and without control characters; empty where it
  // gave none.
  std::string text(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0);

  int parameterCount() const { return effect->numParams; }
  float parameter(int index) const;
  void setParameter(int index, float value);

  // The names of the first `count` programs that the effect gives by index, which may be more than
  // its record counts; fewer where it gives no more.
  std::vector<std::string> programNamesByIndex(int count);
  // The host's programs, 0..numPrograms-1, by index or, where the effect does not give all names
  // so, by selecting one after the other and going back.
  std::vector<std::string> programNames();
  void selectProgram(int index);
  void nameProgram(const std::string& programName);  // the current one

  bool hasChunk() const { return (effect->flags & effFlagsProgramChunks) != 0; }
  enum class ChunkOf { bank, program };  // the current one
  Bytes chunk(ChunkOf = ChunkOf::bank);  // Throws Failure where the effect gives none
  void setChunk(std::span<const unsigned char> bytes, ChunkOf = ChunkOf::bank);

  // Takes and gives a single channel.
  bool isMono() const { return effect->numInputs == 1 && effect->numOutputs == 1; }
  // Throws Failure where the effect cannot process sound so: no replacing operation, no double
  // precision, no input, no output.
  void checkCanProcess(bool doublePrecision) const;
  bool canProcessDouble() const;
  // Throws Failure where it cannot take a sound of 1 or 2 channels; `sound` is what it is called.
  void checkTakes(int channels, const std::string& sound) const;

  // Rate and block size are set before the state, and the effect is switched on after it.
  void setUp(int sampleRate, int blockSize);
  void start(bool doublePrecision);
  void stop();
  // frames; may change on start and with every block
  int latency() const { return effect->initialDelay; }

  // As many pointers as the effect has pins. Without the life lock. Throws Failure where the effect
  // has come out with other pins than it was started with, or with a latency that cannot be.
  void process(float** inputs, float** outputs, int frames);
  void process(double** inputs, double** outputs, int frames);

 private:
  VstIntPtr call(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt);
  std::vector<std::string> namesUnlocked(int count);
  std::string textUnlocked(VstInt32 opcode, VstInt32 index, VstIntPtr value);
  void checkHasChunk() const;
  void advance(int frames);
  void checkShape() const;

  PluginModule& module;
  HostCallback& host;
  std::string name;
  AEffect* effect = nullptr;
  bool running = false;
  VstInt32 inputPins = 0;  // when it was started
  VstInt32 outputPins = 0;
  std::int64_t position = 0;  // frames processed since start
};
