// The effect called by its VST 2.4 record directly: what every other interface has to sound like.
#pragma once

#include <cstddef>
#include <vector>

#include "plugin/createeffectinstance.h"
#include "tests/support/processhost.h"
#include "tests/support/testsignals.h"

class DirectRecord {
 public:
  // With these parameters from the start: nothing glides.
  explicit DirectRecord(const std::vector<float>& values, float rate = 44100.0F)
      : effect(createEffectRecord(processHost)) {
    dispatch(effOpen);
    dispatch(effSetSampleRate, 0, nullptr, rate);
    set(values);
    dispatch(effMainsChanged, 1);
  }
  ~DirectRecord() {
    dispatch(effMainsChanged, 0);
    dispatch(effClose);
  }
  DirectRecord(const DirectRecord&) = delete;
  DirectRecord& operator=(const DirectRecord&) = delete;

  VstIntPtr dispatch(VstInt32 opcode, VstIntPtr value = 0, void* ptr = nullptr, float opt = 0.0F) {
    return effect->dispatcher(effect, opcode, 0, value, ptr, opt);
  }
  void set(const std::vector<float>& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
      effect->setParameter(effect, static_cast<VstInt32>(i), values[i]);
  }
  std::vector<unsigned char> chunk() {
    void* bytes = nullptr;
    const VstIntPtr size = dispatch(effGetChunk, 0, &bytes);
    const auto* first = static_cast<const unsigned char*>(bytes);
    return {first, first + size};
  }
  // In one block.
  Stereo<float> play(Stereo<float> in) {
    Stereo<float> out{std::vector<float>(in.left.size()), std::vector<float>(in.left.size())};
    float* ins[] = {in.left.data(), in.right.data()};
    float* outs[] = {out.left.data(), out.right.data()};
    effect->processReplacing(effect, ins, outs, static_cast<VstInt32>(in.left.size()));
    return out;
  }

 private:
  AEffect* effect;
};
