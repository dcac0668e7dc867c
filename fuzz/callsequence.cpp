// Calls what the input says, and keeps to what a host may do.
#include "fuzz/callsequence.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "fuzz/require.h"
#include "presetsystem/image/presetimage.h"

namespace fuzz {
namespace {

using Bytes = Twins::Bytes;

constexpr std::size_t kProgramName = ACombProgram::kNameSize + 1;  // bytes of a host's buffer

// Names end with a zero, wherever that is.
Bytes terminated(const std::string& text) {
  Bytes bytes(text.begin(), text.end());
  bytes.push_back(0);
  return bytes;
}

}  // namespace

VstInt32 indexFrom(InputReader& input) {
  const unsigned choice = input.byte();
  return choice < 240 ? static_cast<VstInt32>(choice % 8) : input.word();
}

float valueFrom(InputReader& input) {
  using Limits = std::numeric_limits<float>;
  constexpr float kOdd[] = {Limits::quiet_NaN(),
                            Limits::infinity(),
                            -Limits::infinity(),
                            -0.0F,
                            Limits::denorm_min(),
                            1.0F + Limits::epsilon(),
                            -1.0F,
                            Limits::max()};
  const unsigned choice = input.byte();
  if (choice < 240) return static_cast<float>(choice) / 239.0F;
  return choice < 248 ? kOdd[choice - 240] : input.real();
}

void CallSequence::call() {
  switch (input.below(16)) {
    case 0:
      return numbers();
    case 1:
      return parameterText();
    case 2:
      return rename();
    case 3:
    case 4:
      return set();
    case 5:
      return process<float>();
    case 6:
      return process<double>();
    case 7:
      saved = twins.chunk(input.flag());
      return;
    case 8:
      return restore();
    case 9:
      return chunkOfAnyBytes();
    case 10:
      return properties();
    case 11:
      return speakers();
    case 12:
      return texts();
    case 13:
      return events();
    case 14:
      twins.send(effMainsChanged, 0, input.flag() ? 1 : 0);
      return;
    default:
      return answersChange();
  }
}

void CallSequence::requireSoundEnd() {
  twins.host().onCall = nullptr;
  require(twins.send(effGetProgram) == 0, "the host's program is the first");
  const Bytes state = twins.chunk(false);
  require(state.size() == presetimage::kChunkSize, "the chunk has its size");
  set();
  setChunk(state, static_cast<VstIntPtr>(state.size()));
  require(twins.lastAnswer() == 0, "the own chunk is taken");
  require(twins.chunk(true) == state, "and restores everything");
}

// Any opcode with any numbers, and no pointer. The end and the window are left out.
void CallSequence::numbers() {
  const unsigned choice = input.byte();
  const VstInt32 opcode = choice < 128 ? static_cast<VstInt32>(choice) : input.word();
  if (opcode == effClose || opcode == effEditOpen || opcode == effEditGetRect) return;
  const VstInt32 index = indexFrom(input);
  const bool valueIsPointer =
      opcode == effSetSpeakerArrangement || opcode == effGetSpeakerArrangement;
  const VstIntPtr value = valueIsPointer ? 0 : input.word();
  if (opcode == effSetSpeakerArrangement) {
    twins.setSpeakers(nullptr, nullptr);
  } else {
    twins.send(opcode, index, value, input.flag() ? valueFrom(input) : input.real());
  }
}

void CallSequence::parameterText() {
  const VstInt32 opcode = static_cast<VstInt32>(effGetParamLabel + input.below(3));
  twins.sendBlock(opcode, indexFrom(input), 0, Bytes(kParameterText, 0));
}

void CallSequence::rename() {
  std::string name = input.text();
  name = name.substr(0, name.find('\0'));
  twins.sendBlock(effSetProgramName, 0, 0, terminated(name));
  const Bytes read = twins.sendBlock(effGetProgramName, 0, 0, Bytes(kProgramName, 0x55));
  if (twins.host().onCall) return;  // who may have renamed it again
  const std::string expected = name.substr(0, ACombProgram::kNameSize - 1);
  require(std::strlen(reinterpret_cast<const char*>(read.data())) == expected.size() &&
              std::memcmp(read.data(), expected.data(), expected.size()) == 0,
          "the name is the first 23 characters of it");
}

void CallSequence::set() {
  const VstInt32 index = indexFrom(input);
  const float value = valueFrom(input);
  const float before = twins.parameter(index);
  twins.setParameter(index, value);
  const float after = twins.parameter(index);
  const bool isParameter = index >= 0 && index < presetimage::kParameterCount;
  if (isParameter)
    require(after == (std::isnan(value) ? before : value), "a parameter is what it is set to");
}

template <typename Sample>
void CallSequence::process() {
  const auto buffers = static_cast<Twins::Buffers>(input.below(Twins::kBufferWays));
  const std::size_t frames = input.byte();
  const std::size_t cut = input.byte();
  const unsigned kind = input.below(8);
  std::uint32_t noise = input.byte();
  std::vector<Sample> signal(2 * frames);
  for (Sample& sample : signal) {
    noise = noise * 1664525U + 1013904223U;
    const auto number = static_cast<std::int32_t>(noise);
    sample = kind == 0   ? Sample(std::bit_cast<float>(noise))  // any bits
             : kind == 1 ? Sample(0)
             : kind == 2 ? Sample(number) * Sample(1e-30)
             : kind == 3 ? Sample(number) * Sample(1e20)
                         : Sample(number) / Sample(2147483648.0);
  }
  twins.process(buffers, signal, cut);
}

void CallSequence::setChunk(Bytes bytes, VstIntPtr byteSize) {
  twins.sendBlock(effSetChunk, input.flag() ? 1 : 0, byteSize, std::move(bytes));
}

// What was saved before, with a few words changed. A host that names no size has the whole chunk.
void CallSequence::restore() {
  Bytes bytes = saved;
  if (bytes.empty()) return;
  for (unsigned changes = input.below(4); changes > 0; --changes) {
    const std::size_t at = (input.byte() | input.byte() << 8U) % (bytes.size() - 3);
    const std::int32_t word = input.word();
    std::memcpy(&bytes[at], &word, sizeof word);
  }
  const unsigned size = input.byte();
  if (size < 32) return setChunk(std::move(bytes), -static_cast<VstIntPtr>(size));
  if (size < 64) bytes.resize(bytes.size() * size / 64);
  const auto named = static_cast<VstIntPtr>(bytes.size());
  setChunk(std::move(bytes), named);
}

void CallSequence::chunkOfAnyBytes() {
  const std::string bytes = input.text();
  if (!bytes.empty())
    setChunk(Bytes(bytes.begin(), bytes.end()), static_cast<VstIntPtr>(bytes.size()));
}

void CallSequence::properties() {
  const VstInt32 index = indexFrom(input);
  switch (input.below(4)) {
    case 0:
      twins.sendBlock(effGetInputProperties, index, 0, Bytes(sizeof(VstPinProperties), 0));
      break;
    case 1:
      twins.sendBlock(effGetOutputProperties, index, 0, Bytes(sizeof(VstPinProperties), 0));
      break;
    case 2:
      twins.sendBlock(effGetParameterProperties, index, 0,
                      Bytes(sizeof(VstParameterProperties), 0x55));
      break;
    default:
      twins.sendBlock(effGetProgramNameIndexed, index, input.word(), Bytes(kProgramName, 0));
  }
}

void CallSequence::speakers() {
  VstSpeakerArrangement in{}, out{};
  in.numChannels = static_cast<VstInt32>(input.byte()) - 2;
  out.numChannels = static_cast<VstInt32>(input.byte()) - 2;
  const unsigned which = input.below(8);
  twins.setSpeakers(which == 1 ? nullptr : &in, which == 2 ? nullptr : &out);
}

void CallSequence::texts() {
  switch (input.below(6)) {
    case 0:
      twins.sendBlock(effGetEffectName, 0, 0, Bytes(kVstMaxEffectNameLen, 0));
      break;
    case 1:
      twins.sendBlock(effGetVendorString, 0, 0, Bytes(kVstMaxVendorStrLen, 0));
      break;
    case 2:
      twins.sendBlock(effGetProductString, 0, 0, Bytes(kVstMaxProductStrLen, 0));
      break;
    case 3:
      twins.sendBlock(effString2Parameter, indexFrom(input), 0, terminated(input.text()));
      break;
    case 4:
      twins.sendBlock(effVendorSpecific, indexFrom(input), input.word(), Bytes(64, 0),
                      input.real());
      break;
    default:
      twins.sendBlock(effCanDo, 0, 0, terminated(input.text()));
      require(twins.lastAnswer() == 0 || twins.lastAnswer() == 1, "it can or it cannot");
  }
}

void CallSequence::events() {
  VstEvent event{1, sizeof(VstEvent), static_cast<VstInt32>(input.byte()), 0, {}};
  const VstEvents events{1, 0, {&event, nullptr}};
  Bytes block(sizeof events);
  std::memcpy(block.data(), &events, sizeof events);
  twins.sendBlock(effProcessEvents, 0, 0, std::move(block));
}

void CallSequence::answersChange() {
  TwinsHost& host = twins.host();
  const unsigned pins = input.byte();
  host.connected[0][0] = (pins & 1U) == 0;
  host.connected[0][1] = (pins & 2U) == 0;
  host.connected[1][0] = (pins & 4U) == 0;
  host.connected[1][1] = (pins & 8U) == 0;
  host.blockSize = input.flag() ? input.word() : 512;
  host.latency = input.flag() ? input.word() : 0;
}

}  // namespace fuzz
