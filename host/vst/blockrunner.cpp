// Takes blocks of stereo doubles through an effect.
#include "host/vst/blockrunner.h"

#include <algorithm>
#include <cstddef>

namespace {

template <typename Sample>
class PreciseBlockRunner : public BlockRunner {
 public:
  PreciseBlockRunner(Effect& startedEffect, int blockSize) : effect(startedEffect) {
    const auto frames = static_cast<std::size_t>(blockSize);
    addBuffers(static_cast<std::size_t>(effect.record().numInputs), frames, inputBuffers, inputs);
    addBuffers(static_cast<std::size_t>(effect.record().numOutputs), frames, outputBuffers,
               outputs);
  }

  void run(const double* left, const double* right, double* outLeft, double* outRight,
           int frames) override {
    std::transform(left, left + frames, inputs[0],
                   [](double sample) { return static_cast<Sample>(sample); });
    if (inputs.size() > 1) {
      std::transform(right, right + frames, inputs[1],
                     [](double sample) { return static_cast<Sample>(sample); });
    }
    // An effect may write into its inputs; what it does not listen to must stay silence.
    for (std::size_t pin = 2; pin < inputs.size(); ++pin)
      std::fill_n(inputs[pin], frames, Sample{});
    effect.process(inputs.data(), outputs.data(), frames);
    std::copy_n(outputs[0], frames, outLeft);
    std::copy_n(outputs.size() > 1 ? outputs[1] : outputs[0], frames, outRight);
  }

 private:
  static void addBuffers(std::size_t pins, std::size_t frames,
                         std::vector<AlignedBuffer<Sample>>& buffers,
                         std::vector<Sample*>& pointers) {
    for (std::size_t pin = 0; pin < pins; ++pin) {
      buffers.emplace_back(frames);
      pointers.push_back(buffers.back().data());
    }
  }

  Effect& effect;
  std::vector<AlignedBuffer<Sample>> inputBuffers;
  std::vector<AlignedBuffer<Sample>> outputBuffers;
  std::vector<Sample*> inputs;
  std::vector<Sample*> outputs;
};

}  // namespace

std::unique_ptr<BlockRunner> BlockRunner::make(Effect& effect, int blockSize,
                                               bool doublePrecision) {
  if (doublePrecision) return std::make_unique<PreciseBlockRunner<double>>(effect, blockSize);
  return std::make_unique<PreciseBlockRunner<float>>(effect, blockSize);
}
