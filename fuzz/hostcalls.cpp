// Fuzz target: a sequence of a host's calls to two instances of the module, without a window.
#include "fuzz/callsequence.h"
#include "fuzz/wholeeffect.h"

namespace {

using fuzz::InputReader;

constexpr int kMostCalls = 100;  // of one input

// What the host does from inside callbacks, from the instance's making on; the same for both.
std::function<void(AEffect*)> nestedCall(InputReader& input) {
  const unsigned which = input.below(8);
  const VstInt32 index = static_cast<VstInt32>(input.below(8));
  const float value = fuzz::valueFrom(input);
  switch (which) {
    case 1:
      return [=](AEffect* effect) { effect->setParameter(effect, index, value); };
    case 2:
      return [](AEffect* effect) {
        void* data = nullptr;
        const VstIntPtr size = effect->dispatcher(effect, effGetChunk, 0, 0, &data, 0.0F);
        if (size <= 0) return;
        const auto* bytes = static_cast<const unsigned char*>(data);
        fuzz::Twins::Bytes own(bytes, bytes + size);
        effect->dispatcher(effect, effSetChunk, 0, size, own.data(), 0.0F);
      };
    case 3:
      return [=](AEffect* effect) {
        char text[fuzz::kParameterText];
        effect->dispatcher(effect, effGetParamDisplay, index, 0, text, 0.0F);
        effect->getParameter(effect, index);
      };
    case 4:
      return [](AEffect* effect) {
        char name[] = "from inside";
        effect->dispatcher(effect, effSetProgramName, 0, 0, name, 0.0F);
      };
    case 5:
      return [](AEffect* effect) { effect->dispatcher(effect, effMainsChanged, 0, 1, nullptr, 0); };
    default:
      return {};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::wholeEffect();  // for the empty preferences
  InputReader input(data, size);
  fuzz::TwinsHost host;
  host.onCall = nestedCall(input);
  fuzz::CallSequence sequence(input, host);
  for (int calls = 0; calls < kMostCalls && !input.empty(); ++calls) sequence.call();
  sequence.requireSoundEnd();
  return 0;
}
