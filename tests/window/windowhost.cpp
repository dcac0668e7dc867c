// The test host's window, its events, and its answers to the plug-in.
#include "windowhost.h"

#include <dlfcn.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace {

// Pixels. The host's window is larger than the editor, so that there is an area of the host's own.
constexpr int kHostWidth = 320;
constexpr int kHostHeight = 280;
constexpr int kTop = 40;
constexpr int kOtherTop = 400;  // or further down below a larger window

// the host whose plug-in is being made and has no `user` yet
thread_local WindowHost* making = nullptr;

int rounded(double place) {
  return static_cast<int>(std::lround(place));
}

void sleepFor(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace

AEffect* makePlugin(audioMasterCallback host) {
  using Entry = AEffect* (*)(audioMasterCallback);
  const char* path = std::getenv("TRELVAN_MODULE");
  void* module = dlopen(path != nullptr ? path : "", RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) throw std::runtime_error(dlerror());
  return reinterpret_cast<Entry>(dlsym(module, "VSTPluginMain"))(host);
}

WindowHost::WindowHost(int place, Parent parent, double screenScale)
    : scale(screenScale),
      left(20 + rounded(330 * scale) * place),
      top(kTop),
      otherTop(std::max(kOtherTop, kTop + rounded(kHostHeight * scale) + 20)) {
  window = display.makeWindow(
      {left, top, left + rounded(kHostWidth * scale), top + rounded(kHostHeight * scale)},
      parent == Parent::alpha);
  otherWindow = display.makeWindow({left, otherTop, left + kHostWidth, otherTop + 100});
  making = this;
  plugin = makePlugin(callback);
  plugin->user = this;
  making = nullptr;
  dispatch(effOpen);
}

WindowHost::~WindowHost() {
  onCall = nullptr;
  if (editorOpen) closeEditor();
  if (plugin != nullptr) dispatch(effClose);
  display.destroyWindow(window);
  display.destroyWindow(otherWindow);
}

VstIntPtr WindowHost::dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                               float opt) {
  return plugin->dispatcher(plugin, opcode, index, value, ptr, opt);
}

bool WindowHost::openOnly() {
  editorOpen = dispatch(effEditOpen, 0, 0,
                        reinterpret_cast<void*>(static_cast<std::uintptr_t>(window))) != 0;
  return editorOpen;
}

bool WindowHost::openEditor() {
  moveAway();
  if (openOnly()) settle();
  return editorOpen;
}

void WindowHost::closeEditor() {
  dispatch(effEditClose);
  editorOpen = false;
}

void WindowHost::forgetInstance() {
  plugin = nullptr;
  editorOpen = false;
}

void WindowHost::destroyParent() {
  display.destroyWindow(window);
}

void WindowHost::resizeParent(int width, int height) {
  display.resizeWindow(window, width, height);
}

bool WindowHost::hasChildWindows(int count) {
  for (int tries = 0; tries < 1000; ++tries) {
    if (display.childrenOf(window) == count) return true;
    sleepFor(1);
  }
  return false;
}

void WindowHost::idle(int times) {
  for (int i = 0; i < times; ++i) {
    display.sync();
    dispatch(effEditIdle);
  }
}

void WindowHost::settle() {
  picture();
}

bool WindowHost::idleUntil(const std::function<bool()>& condition, int milliseconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    idle();
    sleepFor(2);
  }
  return true;
}

void WindowHost::idleFor(int milliseconds, int interval) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (std::chrono::steady_clock::now() < end) {
    idle();
    sleepFor(interval);
  }
}

void WindowHost::moveTo(int x, int y) {
  display.moveTo(left + rounded(x * scale), top + rounded(y * scale));
  idle();
}

void WindowHost::moveAway() {
  display.moveTo(left + kHostWidth / 2, otherTop + 50);
  if (editorOpen) idle();
}

void WindowHost::press(int button) {
  display.press(button);
  idle();
}

void WindowHost::release(int button) {
  display.release(button);
  idle();
}

void WindowHost::click(int x, int y, int button) {
  moveTo(x, y);
  press(button);
  release(button);
}

void WindowHost::doubleClick(const Area& area) {
  click(area);
  press();
  release();
}

void WindowHost::wheel(const Area& area, int steps) {
  hover(area);
  wheel(steps);
}

void WindowHost::wheel(int steps) {
  const int button = steps > 0 ? 4 : 5;
  for (int i = 0; i < std::abs(steps); ++i) {
    display.press(button);
    display.release(button);
  }
  idle();
}

void WindowHost::key(std::uint32_t keysym) {
  display.tap(keysym);
  idle();
}

void WindowHost::keyDown(std::uint32_t keysym) {
  display.keyDown(keysym);
  idle();
}

void WindowHost::keyUp(std::uint32_t keysym) {
  display.keyUp(keysym);
  idle();
}

void WindowHost::type(const std::string& text) {
  for (const char letter : text)
    key(static_cast<std::uint32_t>(static_cast<unsigned char>(letter)));
}

void WindowHost::focusOther() {
  display.focus(otherWindow);
}

void WindowHost::focusParent() {
  display.focus(window);
}

Area WindowHost::screenArea() {
  ERect* rect = nullptr;
  dispatch(effEditGetRect, 0, 0, &rect);
  return {left, top, left + rect->right - rect->left, top + rect->bottom - rect->top};
}

Area WindowHost::scaled(const Area& area) const {
  return {rounded(area.left * scale), rounded(area.top * scale), rounded(area.right * scale),
          rounded(area.bottom * scale)};
}

Picture WindowHost::lit(const Area& area) {
  hover(area);
  // A tooltip waits for the pointer to rest.
  return display.stillPicture(screenArea(), [this, &area, aside = 0]() mutable {
    std::this_thread::sleep_for(kRedrawTime);
    aside = 1 - aside;
    moveTo(area.centreX() + aside, area.centreY());
  });
}

Picture WindowHost::pictureNow() {
  return display.picture(screenArea());
}

Picture WindowHost::picture() {
  return display.stillPicture(screenArea(), [this] {
    idle();
    std::this_thread::sleep_for(kRedrawTime);
    idle();
  });
}

std::vector<HostCall> WindowHost::calls(VstInt32 opcode) const {
  const std::lock_guard<std::mutex> lock(mutex);
  std::vector<HostCall> found;
  std::copy_if(recorded.begin(), recorded.end(), std::back_inserter(found),
               [opcode](const HostCall& call) { return call.opcode == opcode; });
  return found;
}

std::vector<HostCall> WindowHost::gestureCalls() const {
  const std::lock_guard<std::mutex> lock(mutex);
  std::vector<HostCall> found;
  std::copy_if(recorded.begin(), recorded.end(), std::back_inserter(found),
               [](const HostCall& call) {
                 return call.opcode == audioMasterAutomate || call.opcode == audioMasterBeginEdit ||
                        call.opcode == audioMasterEndEdit;
               });
  return found;
}

void WindowHost::forgetCalls() {
  const std::lock_guard<std::mutex> lock(mutex);
  recorded.clear();
}

std::string WindowHost::programName() {
  char name[64] = {};
  dispatch(effGetProgramName, 0, 0, name);
  return name;
}

std::string WindowHost::programName(int index) {
  char name[64] = {};
  dispatch(effGetProgramNameIndexed, index, -1, name);
  return name;
}

std::vector<unsigned char> WindowHost::chunk() {
  void* data = nullptr;
  const VstIntPtr size = dispatch(effGetChunk, 0, 0, &data);
  const auto* bytes = static_cast<unsigned char*>(data);
  return {bytes, bytes + size};
}

VstIntPtr WindowHost::setChunk(std::vector<unsigned char> data) {
  return dispatch(effSetChunk, 0, static_cast<VstIntPtr>(data.size()), data.data());
}

int WindowHost::currentPreset() {
  // bytes: the prefix, and the field's place in the header
  constexpr std::size_t kCurrentPresetOffset = 8 + 17;
  std::int32_t current = -1;
  std::memcpy(&current, chunk().data() + kCurrentPresetOffset, sizeof current);
  return current;
}

void WindowHost::play(float leftLevel, float rightLevel, int frames) {
  constexpr int kHalf = 50;  // frames
  std::vector<float> in[2], out[2];
  for (int channel = 0; channel < 2; ++channel) {
    for (int i = 0; i < frames; ++i) {
      in[channel].push_back((channel == 0 ? leftLevel : rightLevel) *
                            (i / kHalf % 2 == 0 ? 1.0F : -1.0F));
    }
    out[channel].resize(in[channel].size());
  }
  float* ins[] = {in[0].data(), in[1].data()};
  float* outs[] = {out[0].data(), out[1].data()};
  plugin->processReplacing(plugin, ins, outs, frames);
}

VstIntPtr WindowHost::callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr, void*,
                               float opt) {
  if (opcode == audioMasterVersion) return kVstVersion;
  auto* host = effect != nullptr && effect->user != nullptr ? static_cast<WindowHost*>(effect->user)
                                                            : making;
  return host != nullptr ? host->answer(opcode, index, opt) : 0;
}

VstIntPtr WindowHost::answer(VstInt32 opcode, VstInt32 index, float opt) {
  if (opcode == audioMasterPinConnected) return 0;
  if (opcode == audioMasterGetSampleRate) return 44100;
  const HostCall call{opcode, index, opt};
  {
    const std::lock_guard<std::mutex> lock(mutex);
    recorded.push_back(call);
  }
  if (onCall) onCall(call);
  return 1;
}
