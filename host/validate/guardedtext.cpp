// A text that an effect was asked for.
#include "host/validate/guardedtext.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "host/base/text.h"

namespace {

constexpr std::size_t kBefore = 64;  // bytes that nobody may write
constexpr std::size_t kCapacity =
    8192;                     // bytes: more than an effect that can be told of would write
constexpr char kOther = 'Z';  // fills the buffer the second time

using Buffer = std::vector<char>;

Buffer asked(Subject& subject, VstInt32 opcode, VstInt32 index, VstIntPtr value, char filling,
             VstIntPtr& result) {
  Buffer buffer(kBefore + kCapacity, filling);
  result = subject.dispatch(opcode, index, value, buffer.data() + kBefore);
  return buffer;
}

// From the beginning of the text; 0 where nothing differs.
std::size_t changedBytes(const Buffer& buffer, char filling) {
  const auto last =
      std::find_if(buffer.rbegin(), buffer.rend() - kBefore, [&](char c) { return c != filling; });
  return static_cast<std::size_t>(buffer.rend() - kBefore - last);
}

bool isChangedBefore(const Buffer& buffer, char filling) {
  return std::any_of(buffer.begin(), buffer.begin() + kBefore,
                     [&](char c) { return c != filling; });
}

std::string textIn(const Buffer& buffer, std::size_t longest) {
  return {buffer.data() + kBefore, strnlen(buffer.data() + kBefore, longest)};
}

}  // namespace

GuardedText askText(Subject& subject, VstInt32 opcode, VstInt32 index, VstIntPtr value) {
  GuardedText asking{};
  const Buffer zeros = asked(subject, opcode, index, value, '\0', asking.result);
  const Buffer others = asked(subject, opcode, index, value, kOther, asking.result);
  asking.written = std::max(changedBytes(zeros, '\0'), changedBytes(others, kOther));
  asking.text = textIn(zeros, kCapacity);
  asking.again = textIn(others, asking.written);
  asking.isEnded = asking.written == 0 || asking.again.size() < asking.written;
  asking.wroteBefore = isChangedBefore(zeros, '\0') || isChangedBefore(others, kOther);
  return asking;
}

bool isUtf8(const std::string& text) {
  constexpr std::array<unsigned, 4> kLeast{0, 0x80, 0x800, 0x10000};  // of that many more bytes
  for (std::size_t at = 0; at < text.size();) {
    const auto first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80) continue;
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4 || text.size() - at < more) return false;
    unsigned character = first & (0x3FU >> more);
    for (std::size_t i = 0; i < more; ++i, ++at) {
      const auto next = static_cast<unsigned char>(text[at]);
      if ((next & 0xC0U) != 0x80U) return false;
      character = (character << 6) | (next & 0x3FU);
    }
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < kLeast[more] || character > 0x10FFFF || isSurrogate) return false;
  }
  return true;
}

bool hasControls(const std::string& text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; });
}

std::string shown(const std::string& text) {
  constexpr std::size_t kLongest = 60;  // bytes
  std::string result = "\"";
  for (const char c : text.substr(0, kLongest)) {
    const bool isPlain = c >= ' ' && c < 127;
    result += isPlain ? std::string(1, c) : formatted("\\x%02x", static_cast<unsigned char>(c));
  }
  return result + (text.size() > kLongest ? "...\"" : "\"");
}
