// What an effect may ask of its host, and the answers.
#include "host/vst/hostcallback.h"

#include <cstring>
#include <string_view>
#include <utility>

namespace {

thread_local HostCallback* creating = nullptr;

constexpr VstIntPtr kProcessLevelUser = 1;
constexpr VstIntPtr kProcessLevelRealTime = 2;
constexpr VstIntPtr kProcessLevelOffline = 4;
constexpr VstIntPtr kAutomationOff = 1;
constexpr VstIntPtr kLanguageEnglish = 1;
constexpr VstIntPtr kVendorVersion = 1000;  // of this host's answers

// Of the time record: the transport plays, and tempo and time signature are valid.
constexpr VstInt32 kTransportPlaying = 1 << 1;
constexpr VstInt32 kTempoValid = 1 << 10;
constexpr VstInt32 kTimeSignatureValid = 1 << 13;
constexpr int kLargestWindow = 32767;  // pixels: windows' sizes have 16 bits, and a sign
constexpr double kTempo = 120.0;       // beats a minute; files have none, and effects divide by it

VstIntPtr giveText(void* to, const char* text) {
  if (to == nullptr) return 0;
  std::memcpy(to, text, std::strlen(text) + 1);
  return 1;
}

VstIntPtr canDo(const void* text) {
  if (text == nullptr) return 0;
  const std::string_view asked = static_cast<const char*>(text);
  for (const std::string_view known : {"sendVstTimeInfo", "acceptIOChanges", "startStopProcess"}) {
    if (asked == known) return 1;
  }
  return 0;
}

}  // namespace

HostCallback::Scope::Scope(HostCallback* callback) : before(creating) {
  creating = callback;
}

HostCallback::Scope::~Scope() {
  creating = before;
}

VstIntPtr HostCallback::entry(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                              void* ptr, float) {
  HostCallback* callback = creating;
  if (callback == nullptr && effect != nullptr)
    callback = reinterpret_cast<HostCallback*>(effect->resvd1);
  // A stray call without a host still learns the version: nothing else can be answered.
  if (callback == nullptr) return opcode == audioMasterVersion ? kVstVersion : 0;
  return callback->answer(opcode, index, value, ptr);
}

VstIntPtr HostCallback::processLevel() const {
  if (processing && !realTime) return kProcessLevelOffline;
  return processing && onAudioThread() ? kProcessLevelRealTime : kProcessLevelUser;
}

VstTimeInfo* HostCallback::timeInfo() {
  VstTimeInfo& told = onAudioThread() ? audioTime : time;
  told.sampleRate = sampleRate;
  told.samplePos = static_cast<double>(position.load());
  told.tempo = kTempo;
  told.timeSigNumerator = 4;
  told.timeSigDenominator = 4;
  told.flags = kTempoValid | kTimeSignatureValid | (processing ? kTransportPlaying : 0);
  return &told;
}

std::optional<HostCallback::Size> HostCallback::takeWindowSize() {
  return std::exchange(windowSize, std::nullopt);
}

VstIntPtr HostCallback::keepWindowSize(VstInt32 width, VstIntPtr height) {
  if (!hasWindow || width <= 0 || height <= 0) return 0;
  if (width > kLargestWindow || height > kLargestWindow) return 0;
  windowSize = Size{width, static_cast<int>(height)};
  return 1;
}

VstIntPtr HostCallback::answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr) {
  switch (opcode) {
    case audioMasterVersion:
      return kVstVersion;
    case audioMasterCurrentId:
      return uniqueID;
    case audioMasterPinConnected:
      return pinsConnected ? 0 : 1;
    case audioMasterGetTime:
      return sampleRate > 0.0 ? reinterpret_cast<VstIntPtr>(timeInfo()) : 0;
    case audioMasterGetSampleRate:
      return static_cast<VstIntPtr>(sampleRate.load());
    case audioMasterGetBlockSize:
      return blockSize;
    case audioMasterGetCurrentProcessLevel:
      return processLevel();
    case audioMasterGetAutomationState:
      return kAutomationOff;
    case audioMasterGetVendorString:
      return giveText(ptr, "Orv");
    case audioMasterGetProductString:
      return giveText(ptr, "widen");
    case audioMasterGetVendorVersion:
      return kVendorVersion;
    case audioMasterCanDo:
      return canDo(ptr);
    case audioMasterGetLanguage:
      return kLanguageEnglish;
    case audioMasterSizeWindow:
      return keepWindowSize(index, value);
    case audioMasterIOChanged:  // the shape is looked at after every block anyway
    case audioMasterBeginEdit:
    case audioMasterEndEdit:
    case audioMasterUpdateDisplay:
      return 1;
    default:
      return 0;
  }
}
