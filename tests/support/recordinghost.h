// A host for tests: it writes down every callback and returns what it is told to.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "plugin/vst24.h"

// One at a time, and one thread. Effects call it through RecordingHost::callback while it lives.
class RecordingHost {
 public:
  struct Call {
    AEffect* effect;
    VstInt32 opcode;
    VstInt32 index;
    VstIntPtr value;
    void* ptr;
    float opt;
  };

  RecordingHost() { current = this; }
  ~RecordingHost() { current = nullptr; }
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;

  static VstIntPtr callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                            void* ptr, float opt) {
    return current != nullptr ? current->take({effect, opcode, index, value, ptr, opt}) : 0;
  }

  std::vector<VstInt32> opcodes() const {
    std::vector<VstInt32> list;
    for (const Call& call : calls) list.push_back(call.opcode);
    return list;
  }

  // 0 for every other opcode
  std::map<VstInt32, VstIntPtr> answers{{audioMasterVersion, kVstVersion}};
  std::vector<Call> calls;
  // called inside each callback that passes an effect, but not inside itself
  std::function<void(const Call&)> onCall;

 private:
  VstIntPtr take(const Call& call) {
    calls.push_back(call);
    if (onCall && call.effect != nullptr && !inside) {
      inside = true;
      onCall(call);
      inside = false;
    }
    const auto answer = answers.find(call.opcode);
    return answer != answers.end() ? answer->second : 0;
  }

  static inline RecordingHost* current = nullptr;
  bool inside = false;
};
