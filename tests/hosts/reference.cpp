// Renders raw stereo floats the way every host must: the reference as a program of its own.
//
// reference RATE BEFORE AFTER <in >out
// RATE: Hz, at which the host switched the effect on. BEFORE, AFTER: width, baseFreq, emphasis,
// process and phase, each 0..1, with commas between; the effect was switched on with the first and
// glides to the second from the first frame on.
// Build without contraction into fused operations: the results are compared bit by bit.
#include "tests/support/reference.h"

#include <cstdio>
#include <cstdlib>

namespace {

void set(Reference& reference, const char* text) {
  float v[5];
  if (std::sscanf(text, "%f,%f,%f,%f,%f", &v[0], &v[1], &v[2], &v[3], &v[4]) != 5) {
    std::fprintf(stderr, "reference: \"%s\" is not five numbers\n", text);
    std::exit(2);
  }
  for (int index = 0; index < 5; ++index) reference.setParameter(index, v[index]);
}

}  // namespace

int main(int count, char** words) {
  if (count != 4) {
    std::fprintf(stderr, "usage: reference RATE BEFORE AFTER <in >out\n");
    return 2;
  }
  static Reference reference;
  reference.setSampleRate(static_cast<float>(std::atoi(words[1])));
  set(reference, words[2]);
  reference.resume();
  set(reference, words[3]);

  float in[2];
  float out[2];
  float* ins[] = {&in[0], &in[1]};
  float* outs[] = {&out[0], &out[1]};
  while (std::fread(in, sizeof in[0], 2, stdin) == 2) {
    reference.processReplacing(ins, outs, 1, true, true);
    std::fwrite(out, sizeof out[0], 2, stdout);
  }
  return 0;
}
