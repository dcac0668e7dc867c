// What the tests of failing calls ask of an instance, and what they compare of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <utility>

#include "tests/module/instance.h"

// What an instance shows of itself.
struct State {
  explicit State(Instance& instance) : chunk(instance.chunk()) {
    name = instance.text(effGetProgramName);
    for (VstInt32 i = 0; i < 8; ++i) {
      parameters[static_cast<std::size_t>(i)] = instance.getParameter(i);
    }
  }
  bool operator==(const State&) const = default;

  imagebytes::Bytes chunk;
  std::string name;
  std::array<float, 8> parameters{};
};

// One call of the dispatcher with arguments that make sense for it, or without the pointer, and
// what came of it.
class Request {
 public:
  // chunk: for effSetChunk.
  Request(VstInt32 opcode, VstInt32 index, bool withPointer,
          imagebytes::Bytes chunk = imagebytes::chunk(imagebytes::distinctBank(), 9))
      : opcode(opcode), index(index), withPointer(withPointer), chunk(std::move(chunk)) {}

  // The arguments anew: nothing is written into them yet.
  void prepare() {
    block.fill(0);
    data = nullptr;
    ptr = withPointer ? block.data() : nullptr;
    value = 1;
    if (opcode == effSetProgramName) say("a name of three words");
    if (opcode == effString2Parameter) say("0.75");
    if (opcode == effCanDo) say("2in2out");
    if (opcode == effGetChunk && withPointer) ptr = &data;
    if (opcode == effSetChunk) value = static_cast<VstIntPtr>(chunk.size());
    given = chunk;  // anew, because a chunk in the other byte order is turned where it lies
    if (opcode == effSetChunk && withPointer) ptr = given.data();
    if (opcode == effSetSpeakerArrangement || opcode == effGetSpeakerArrangement) {
      value = withPointer ? reinterpret_cast<VstIntPtr>(other.data()) : 0;
    }
    untouched = block;
  }
  void ask(Instance& instance) { answer = instance.send(opcode, index, value, ptr, 48000.0F); }

  // The host is told that it cannot be, and gets nothing.
  bool isRefused() const {
    const VstIntPtr cannot = opcode == effSetChunk ? -1 : 0;
    return answer == cannot && data == nullptr && block == untouched;
  }
  bool isAnsweredAs(const Request& same) const {
    return answer == same.answer && block == same.block && bytes() == same.bytes();
  }

 private:
  using Block = std::array<char, 1024>;  // bytes; the largest record of the interface takes 904

  void say(const char* text) {
    if (withPointer) std::strcpy(block.data(), text);
  }
  imagebytes::Bytes bytes() const {
    const auto* first = static_cast<const unsigned char*>(data);
    return data != nullptr ? imagebytes::Bytes(first, first + answer) : imagebytes::Bytes();
  }

  VstInt32 opcode;
  VstInt32 index;
  bool withPointer;
  imagebytes::Bytes chunk;
  imagebytes::Bytes given;
  alignas(std::max_align_t) Block block{};
  alignas(std::max_align_t) Block other{};
  Block untouched{};
  void* data = nullptr;  // the chunk's
  void* ptr = nullptr;
  VstIntPtr value = 0;
  VstIntPtr answer = 0;
};
