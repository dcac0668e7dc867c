// The built module and its effects, as a host that knows nothing but the entry point handles them.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

#include "plugin/vst24.h"
#include "tests/support/imagebytes.h"
#include "tests/support/recordinghost.h"

// Holds the module in the process while it lives.
class LoadedModule {
 public:
  LoadedModule() : handle(dlopen(TRELVAN_MODULE, RTLD_NOW | RTLD_LOCAL)) {
    if (handle == nullptr) ADD_FAILURE() << dlerror();
  }
  ~LoadedModule() {
    if (handle != nullptr) dlclose(handle);
  }
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  void* symbol(const char* name) const { return handle != nullptr ? dlsym(handle, name) : nullptr; }

  // What the entry point returns; the caller closes it.
  AEffect* create(audioMasterCallback host) const {
    using EntryPoint = AEffect* (*)(audioMasterCallback);
    const auto entry = reinterpret_cast<EntryPoint>(symbol("VSTPluginMain"));
    return entry != nullptr ? entry(host) : nullptr;
  }

 private:
  void* handle;
};

// Both channels of one rendering.
struct Audio {
  std::vector<float> left;
  std::vector<float> right;

  bool operator==(const Audio& other) const {
    return sameBits(left, other.left) && sameBits(right, other.right);
  }

 private:
  static bool sameBits(const std::vector<float>& a, const std::vector<float>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0;
  }
};

inline bool isFinite(const Audio& audio) {
  for (const auto* channel : {&audio.left, &audio.right}) {
    for (const float sample : *channel) {
      if (!std::isfinite(sample)) return false;
    }
  }
  return true;
}

// White noise between -1 and 1, different on both sides, always the same.
inline Audio noise(std::size_t frames) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> sample(-1.0F, 1.0F);
  Audio audio;
  for (std::size_t i = 0; i < frames; ++i) {
    audio.left.push_back(sample(random));
    audio.right.push_back(sample(random));
  }
  return audio;
}

enum class Buffers { separate, inPlace };

// One effect of the module, closed at its end.
class Instance {
 public:
  explicit Instance(const LoadedModule& module, audioMasterCallback host = RecordingHost::callback)
      : effect(module.create(host)) {
    if (effect == nullptr) ADD_FAILURE() << "no effect";
  }
  ~Instance() { close(); }
  Instance(const Instance&) = delete;
  Instance& operator=(const Instance&) = delete;

  VstIntPtr send(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                 float opt = 0.0F) {
    return effect->dispatcher(effect, opcode, index, value, ptr, opt);
  }
  // Returns what effClose returns; 0 if there is nothing to close.
  VstIntPtr close() {
    const VstIntPtr answer = effect != nullptr ? send(effClose) : 0;
    effect = nullptr;
    return answer;
  }
  AEffect* release() {
    AEffect* left = effect;
    effect = nullptr;
    return left;
  }

  void setSampleRate(float rate) { send(effSetSampleRate, 0, 0, nullptr, rate); }
  void setBlockSize(VstInt32 frames) { send(effSetBlockSize, 0, frames); }
  void mainsChanged(bool on) { send(effMainsChanged, 0, on ? 1 : 0); }
  void setParameter(VstInt32 index, float value) { effect->setParameter(effect, index, value); }
  float getParameter(VstInt32 index) { return effect->getParameter(effect, index); }
  // The text that an opcode writes.
  std::string text(VstInt32 opcode, VstInt32 index = 0) {
    char buffer[256] = "";
    send(opcode, index, 0, buffer);
    return buffer;
  }

  imagebytes::Bytes chunk(VstInt32 index = 0) {
    void* data = nullptr;
    const VstIntPtr size = send(effGetChunk, index, 0, &data);
    const auto* bytes = static_cast<const unsigned char*>(data);
    return data != nullptr ? imagebytes::Bytes(bytes, bytes + size) : imagebytes::Bytes();
  }
  VstIntPtr setChunk(imagebytes::Bytes data, VstInt32 index = 0) {
    return send(effSetChunk, index, static_cast<VstIntPtr>(data.size()), data.data());
  }

  // Processes `input` in blocks of these sizes, one after the other and again from the first.
  Audio render(const Audio& input, Buffers buffers = Buffers::separate,
               std::initializer_list<VstInt32> blocks = {512}) {
    Audio in = input;
    Audio out = buffers == Buffers::separate ? Audio{std::vector<float>(input.left.size(), 99.0F),
                                                     std::vector<float>(input.left.size(), 99.0F)}
                                             : Audio{};
    Audio& to = buffers == Buffers::separate ? out : in;
    auto block = blocks.begin();
    for (std::size_t at = 0; at < input.left.size();) {
      const auto frames = std::min(static_cast<std::size_t>(*block), input.left.size() - at);
      float* ins[] = {in.left.data() + at, in.right.data() + at};
      float* outs[] = {to.left.data() + at, to.right.data() + at};
      effect->processReplacing(effect, ins, outs, static_cast<VstInt32>(frames));
      at += frames;
      if (++block == blocks.end()) block = blocks.begin();
    }
    return to;
  }

  AEffect* effect;
};

// A host, the module, and what tests compare with.
class ModuleTest : public testing::Test {
 protected:
  // What the simplest host gets: the state, then switched on, then processed.
  Audio plainRendering(const imagebytes::Bytes& state, const Audio& input, float rate = 48000.0F) {
    Instance plain(module);
    plain.setSampleRate(rate);
    EXPECT_EQ(plain.setChunk(state), 0);
    plain.mainsChanged(true);
    return plain.render(input);
  }

  RecordingHost host;
  LoadedModule module;
};
