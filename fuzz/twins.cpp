// Makes the pair, calls both, and compares.
#include "fuzz/twins.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "fuzz/require.h"

extern "C" AEffect* VSTPluginMain(audioMasterCallback audioMaster);

namespace fuzz {
namespace {

TwinsHost theHost;
bool insideCall = false;

VstIntPtr answerOf(VstInt32 opcode, VstInt32 index, VstIntPtr value) {
  switch (opcode) {
    case audioMasterVersion:
      return kVstVersion;
    case audioMasterPinConnected:  // 0 means that it is
      return theHost.connected[value != 0 ? 1 : 0][index != 0 ? 1 : 0] ? 0 : 1;
    case audioMasterGetBlockSize:
      return theHost.blockSize;
    case audioMasterGetOutputLatency:
      return theHost.latency;
    default:
      return 0;
  }
}

VstIntPtr callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value, void*,
                   float) {
  // those may come from the audio thread, which makes no calls
  const bool mayCall = effect != nullptr && opcode != audioMasterPinConnected;
  if (mayCall && theHost.onCall && !insideCall) {
    insideCall = true;
    theHost.onCall(effect);
    insideCall = false;
  }
  return answerOf(opcode, index, value);
}

// A NaN's other bits are nobody's promise.
template <typename Sample>
bool same(const std::vector<Sample>& a, const std::vector<Sample>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](Sample x, Sample y) {
    return (std::isnan(x) && std::isnan(y)) || (x == y && std::signbit(x) == std::signbit(y));
  });
}

template <typename Sample>
void processOf(AEffect* effect, Sample** inputs, Sample** outputs, std::size_t frames) {
  const auto count = static_cast<VstInt32>(frames);
  if constexpr (sizeof(Sample) == sizeof(float)) {
    effect->processReplacing(effect, inputs, outputs, count);
  } else {
    effect->processDoubleReplacing(effect, inputs, outputs, count);
  }
}

// The buffers of one instance, each a heap block that ends after the last frame.
template <typename Sample>
struct Channels {
  using Buffer = std::vector<Sample>;

  Channels(Twins::Buffers way, const std::vector<Sample>& signal)
      : inL(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(signal.size() / 2)),
        inR(signal.begin() + static_cast<std::ptrdiff_t>(signal.size() / 2), signal.end()),
        outL(inL.size(), Sample(7)),
        outR(inR.size(), Sample(7)) {
    using enum Twins::Buffers;
    inputs = {&inL, way == oneInput ? &inL : way == noRight ? nullptr : &inR};
    outputs = {&outL, way == oneOutput ? &outL : way == noRight ? nullptr : &outR};
    if (way == inPlace) outputs = inputs;
    if (way == crossed) outputs = {&inR, &inL};
  }

  // Arrays of as many pointers as the host has promised.
  void process(AEffect* effect, std::size_t from, std::size_t to, bool rightIn, bool rightOut) {
    const auto pointers = [from](const std::pair<Buffer*, Buffer*>& pair, bool right) {
      auto made = std::make_unique<Sample*[]>(right ? 2 : 1);
      made[0] = pair.first->data() + from;
      if (right) made[1] = pair.second != nullptr ? pair.second->data() + from : nullptr;
      return made;
    };
    const auto in = pointers(inputs, rightIn);
    const auto out = pointers(outputs, rightOut);
    processOf(effect, in.get(), out.get(), to - from);
  }

  Buffer inL, inR, outL, outR;
  std::pair<Buffer*, Buffer*> inputs, outputs;
};

}  // namespace

Twins::Twins(const TwinsHost& withHost) {
  theHost = withHost;
  for (AEffect*& twin : twins) {
    twin = VSTPluginMain(callback);
    require(twin != nullptr, "an instance can be made");
  }
}

Twins::~Twins() {
  for (AEffect* twin : twins) twin->dispatcher(twin, effClose, 0, 0, nullptr, 0.0F);
}

TwinsHost& Twins::host() {
  return theHost;
}

VstIntPtr Twins::same(const std::function<VstIntPtr(AEffect*)>& call) {
  answer = call(twins[0]);
  require(call(twins[1]) == answer, "both answer the same");
  return answer;
}

VstIntPtr Twins::send(VstInt32 opcode, VstInt32 index, VstIntPtr value, float opt) {
  return same(
      [=](AEffect* twin) { return twin->dispatcher(twin, opcode, index, value, nullptr, opt); });
}

Twins::Bytes Twins::sendBlock(VstInt32 opcode, VstInt32 index, VstIntPtr value, Bytes block,
                              float opt) {
  Bytes first(block);
  Bytes second(std::move(block));
  first.shrink_to_fit();
  second.shrink_to_fit();
  answer = twins[0]->dispatcher(twins[0], opcode, index, value, first.data(), opt);
  const VstIntPtr other = twins[1]->dispatcher(twins[1], opcode, index, value, second.data(), opt);
  require(answer == other, "both answer the same");
  require(first == second, "both write the same");
  return first;
}

void Twins::setParameter(VstInt32 index, float value) {
  for (AEffect* twin : twins) twin->setParameter(twin, index, value);
}

float Twins::parameter(VstInt32 index) {
  const float first = twins[0]->getParameter(twins[0], index);
  const float second = twins[1]->getParameter(twins[1], index);
  require(first == second || (std::isnan(first) && std::isnan(second)), "both have the same value");
  return first;
}

Twins::Bytes Twins::chunk(bool isPreset) {
  Bytes chunks[2];
  for (int which = 0; which < 2; ++which) {
    void* data = nullptr;
    AEffect* twin = twins[which];
    const VstIntPtr size = twin->dispatcher(twin, effGetChunk, isPreset ? 1 : 0, 0, &data, 0.0F);
    require(size > 0 && data != nullptr, "there is a chunk");
    const auto* bytes = static_cast<const unsigned char*>(data);
    chunks[which].assign(bytes, bytes + size);
  }
  require(chunks[0] == chunks[1], "both have the same state");
  return chunks[0];
}

VstIntPtr Twins::setSpeakers(VstSpeakerArrangement* in, VstSpeakerArrangement* out) {
  rightInput = !(in != nullptr && in->numChannels == 1 && out != nullptr && out->numChannels == 2);
  return same([=](AEffect* twin) {
    return twin->dispatcher(twin, effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(in), out,
                            0.0F);
  });
}

template <typename Sample>
void Twins::process(Buffers buffers, const std::vector<Sample>& signal, std::size_t cut) {
  const std::size_t frames = signal.size() / 2;
  const bool rightIn = theHost.connected[0][1] && rightInput;
  const bool rightOut = theHost.connected[1][1];
  Channels<Sample> whole(buffers, signal);
  Channels<Sample> pieces(buffers, signal);
  whole.process(twins[0], 0, frames, rightIn, rightOut);
  pieces.process(twins[1], 0, std::min(cut, frames), rightIn, rightOut);
  pieces.process(twins[1], std::min(cut, frames), frames, rightIn, rightOut);
  require(fuzz::same(whole.outL, pieces.outL) && fuzz::same(whole.outR, pieces.outR) &&
              fuzz::same(whole.inL, pieces.inL) && fuzz::same(whole.inR, pieces.inR),
          "the sound does not depend on the division into blocks");
}

template void Twins::process<float>(Buffers, const std::vector<float>&, std::size_t);
template void Twins::process<double>(Buffers, const std::vector<double>&, std::size_t);

}  // namespace fuzz
