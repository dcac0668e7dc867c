// Two instances of the module that get the same calls from one host, and must do the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "plugin/vst24.h"

namespace fuzz {

// What the host answers to both, and what it does from inside their callbacks.
struct TwinsHost {
  bool connected[2][2] = {{true, true}, {true, true}};  // inputs, outputs
  VstIntPtr blockSize = 0;                              // frames; 0: no answer
  VstIntPtr latency = 0;                                // frames
  // Called inside each callback but the questions for pins, and not inside itself; may be empty.
  std::function<void(AEffect*)> onCall;
};

// One pair at a time.
class Twins {
 public:
  using Bytes = std::vector<unsigned char>;

  explicit Twins(const TwinsHost& withHost);
  ~Twins();
  Twins(const Twins&) = delete;
  Twins& operator=(const Twins&) = delete;

  TwinsHost& host();

  // One after the other, with the same answer.
  VstIntPtr send(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, float opt = 0.0F);
  // ptr: for each a block of its own with these bytes, after which memory ends. What stands in it
  // afterwards is the same too, and is returned.
  Bytes sendBlock(VstInt32 opcode, VstInt32 index, VstIntPtr value, Bytes block, float opt = 0.0F);
  VstIntPtr lastAnswer() const { return answer; }

  void setParameter(VstInt32 index, float value);
  float parameter(VstInt32 index);
  Bytes chunk(bool isPreset);
  VstIntPtr setSpeakers(VstSpeakerArrangement* in, VstSpeakerArrangement* out);

  // How the channels' buffers lie.
  enum class Buffers { separate, inPlace, crossed, oneInput, oneOutput, noRight };
  static constexpr unsigned kBufferWays = 6;
  // signal: left, then right, of as many frames; the second instance gets it in two pieces, of
  // which the first has `cut` frames. They put out the same.
  template <typename Sample>
  void process(Buffers buffers, const std::vector<Sample>& signal, std::size_t cut);

 private:
  VstIntPtr same(const std::function<VstIntPtr(AEffect*)>& call);

  AEffect* twins[2];
  VstIntPtr answer = 0;
  bool rightInput = true;  // by the arrangement
};

}  // namespace fuzz
