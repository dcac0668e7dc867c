// Makes the effect by the function that makes its record, drives it by that record, and answers
// what it asks.
#include "formats/record/hostedeffect.h"

#include <string_view>
#include <vector>

#include "plugin/createeffectinstance.h"

namespace {

constexpr VstInt32 kTextRoom = 256;  // bytes: effects write more than the interface gives them

}  // namespace

std::unique_ptr<HostedEffect> HostedEffect::make(HostedEffectListener& listener, double rate,
                                                 int inputs) {
  AEffect* const record = createEffectRecord(answer);
  if (record == nullptr) return nullptr;
  std::unique_ptr<HostedEffect> effect;
  try {
    effect.reset(new HostedEffect(record, rate));
  } catch (...) {
    record->dispatcher(record, effClose, 0, 0, nullptr, 0.0F);
    throw;
  }
  VstSpeakerArrangement in{};
  VstSpeakerArrangement out{};
  in.type = inputs == 1 ? kSpeakerArrMono : kSpeakerArrStereo;
  in.numChannels = inputs;
  out.type = kSpeakerArrStereo;
  out.numChannels = 2;
  if (effect->call(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out) == 0)
    return nullptr;
  effect->listener = &listener;
  return effect;
}

HostedEffect::HostedEffect(AEffect* made, double rate) : record(made), sampleRate(rate) {
  record->resvd1 = reinterpret_cast<VstIntPtr>(this);  // the host's own word of the record
  call(effOpen);
  call(effSetSampleRate, 0, 0, nullptr, static_cast<float>(rate));
}

HostedEffect::~HostedEffect() {
  listener = nullptr;
  stop();
  call(effClose);
}

// While the effect is being made its record is nobody's yet: it learns the version, and that its
// pins are connected.
VstIntPtr HostedEffect::answer(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                               void* ptr, float opt) {
  if (opcode == audioMasterPinConnected) return 0;  // twice a block
  if (opcode == audioMasterVersion) return kVstVersion;
  if (effect == nullptr || effect->resvd1 == 0) return 0;
  return reinterpret_cast<HostedEffect*>(effect->resvd1)->hear(opcode, index, value, ptr, opt);
}

VstIntPtr HostedEffect::hear(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                             float opt) {
  if (opcode == audioMasterGetSampleRate) return static_cast<VstIntPtr>(sampleRate);
  if (listener == nullptr) return 0;
  switch (opcode) {
    case audioMasterAutomate:
      listener->parameterEdited(index, opt);
      return 1;
    case audioMasterBeginEdit:
      listener->editBegun(index);
      return 1;
    case audioMasterEndEdit:
      listener->editEnded(index);
      return 1;
    case audioMasterUpdateDisplay:
      listener->displayOutdated();
      return 1;
    case audioMasterVendorSpecific:
      if (index != record->uniqueID || value != kWindowScaleWanted || windowScale == 0.0F) return 0;
      *static_cast<float*>(ptr) = windowScale;
      return 1;
    default:
      return 0;
  }
}

std::string HostedEffect::text(VstInt32 opcode, VstInt32 index) const {
  char text[kTextRoom] = {};
  call(opcode, index, 0, text);
  const std::string_view given(text);
  const std::size_t first = given.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(given.substr(first, given.find_last_not_of(' ') - first + 1));
}

int HostedEffect::version() const {
  return static_cast<int>(call(effGetVendorVersion));
}

bool HostedEffect::isSwitch(int index) const {
  VstParameterProperties properties{};
  return call(effGetParameterProperties, index, 0, &properties) != 0 &&
         (properties.flags & kVstParameterIsSwitch) != 0;
}

void HostedEffect::start() {
  call(effMainsChanged, 0, 1);
  started = true;
}

void HostedEffect::stop() {
  if (started) call(effMainsChanged, 0, 0);
  started = false;
}

void HostedEffect::startAgain() {
  if (!started) return;
  stop();
  start();
}

std::span<const unsigned char> HostedEffect::chunk() {
  void* bytes = nullptr;
  const VstIntPtr size = call(effGetChunk, 0, 0, &bytes);
  if (size <= 0 || bytes == nullptr) return {};
  return {static_cast<const unsigned char*>(bytes), static_cast<std::size_t>(size)};
}

// From a copy: the effect turns the header of a chunk of the other byte order where it stands. No
// bytes would be a chunk whose size nobody knows.
bool HostedEffect::takeChunk(std::span<const unsigned char> bytes) {
  if (bytes.empty() || bytes.size() > INT32_MAX) return false;
  std::vector<unsigned char> copy(bytes.begin(), bytes.end());
  return call(effSetChunk, 0, static_cast<VstIntPtr>(copy.size()), copy.data()) >= 0;
}

bool HostedEffect::openWindow(void* parent, float scale) {
  windowScale = scale;
  return call(effEditOpen, 0, 0, parent) != 0;
}

void HostedEffect::closeWindow() {
  call(effEditClose);
}

void HostedEffect::idleWindow() {
  call(effEditIdle);
}

HostedEffect::Size HostedEffect::windowSize() const {
  ERect* rect = nullptr;
  if (call(effEditGetRect, 0, 0, &rect) == 0 || rect == nullptr) return {0, 0};
  return {rect->right - rect->left, rect->bottom - rect->top};
}
