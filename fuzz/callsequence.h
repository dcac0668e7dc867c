// A sequence of a host's calls, made up from a fuzz target's input.
#pragma once

#include "fuzz/inputreader.h"
#include "fuzz/twins.h"

namespace fuzz {

VstInt32 indexFrom(InputReader& input);  // of a parameter mostly
float valueFrom(InputReader& input);     // in 0..1 mostly

// A host's buffer for a parameter's text, in bytes, with the end's zero.
constexpr std::size_t kParameterText = 16;

// Values and pointers are of the kinds that the interface says, and nothing opens a window.
class CallSequence {
 public:
  CallSequence(InputReader& from, const TwinsHost& host) : input(from), twins(host) {}

  void call();
  // Whatever was called, the instances' own state restores them.
  void requireSoundEnd();

 private:
  void numbers();
  void parameterText();
  void rename();
  void set();
  template <typename Sample>
  void process();
  void setChunk(Twins::Bytes bytes, VstIntPtr byteSize);
  void restore();
  void chunkOfAnyBytes();
  void properties();
  void speakers();
  void texts();
  void events();
  void answersChange();

  InputReader& input;
  Twins twins;
  Twins::Bytes saved;
};

}  // namespace fuzz
