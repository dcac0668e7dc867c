// What a host with a window answers beyond the others.
#include "host/vst/editorwindow.h"

#include <utility>

VstIntPtr EditorHostCallback::answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) {
  if (opcode != audioMasterSizeWindow) return HostCallback::answer(opcode, index, value, ptr, opt);
  if (index <= 0 || value <= 0) return 0;
  asked = Size{index, static_cast<int>(value)};
  return 1;
}

std::optional<EditorHostCallback::Size> EditorHostCallback::takeSize() {
  return std::exchange(asked, std::nullopt);
}
