// A text that an effect was asked for.
#include "host/validate/means/guardedtext.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "host/base/text.h"
#include "host/validate/means/pagebuffer.h"

namespace {

constexpr std::size_t kBefore = 64;  // bytes that nobody may write
constexpr std::size_t kCapacity =
    8192;  // bytes: more than an effect that can be told of would write
constexpr std::size_t kRoomyText = 1024;  // bytes; more than any text was seen to have
constexpr char kOther = 'Z';              // fills the buffer the second time

// Memory for a text, filled: what goes on after its end crashes there and then.
class Buffer {
 public:
  explicit Buffer(char itsFilling) : filling(itsFilling) {
    std::fill(pages.atEnd<char>(), text(), filling);
    std::fill_n(text(), kCapacity, filling);
  }

  char* text() const { return pages.atEnd<char>() + kBefore; }
  std::string textIn(std::size_t longest) const { return {text(), strnlen(text(), longest)}; }

  // From the beginning of the text; 0 where nothing differs.
  std::size_t changedBytes() const {
    std::size_t count = kCapacity;
    while (count > 0 && text()[count - 1] == filling) --count;
    return count;
  }
  bool isChangedBefore() const {
    return std::any_of(pages.atEnd<char>(), text(), [&](char c) { return c != filling; });
  }

 private:
  PageBuffer pages{kBefore + kCapacity};
  char filling;
};

}  // namespace

GuardedText askText(Subject& subject, VstInt32 opcode, VstInt32 index, VstIntPtr value) {
  GuardedText asking{};
  const Buffer zeros('\0');
  asking.result = subject.dispatch(opcode, index, value, zeros.text());
  const Buffer others(kOther);
  asking.result = subject.dispatch(opcode, index, value, others.text());
  asking.written = std::max(zeros.changedBytes(), others.changedBytes());
  asking.text = zeros.textIn(kCapacity);
  asking.again = others.textIn(asking.written);
  asking.isEnded = asking.written == 0 || asking.again.size() < asking.written;
  asking.wroteBefore = zeros.isChangedBefore() || others.isChangedBefore();
  return asking;
}

std::string givenText(const std::function<void(char* text)>& ask) {
  const PageBuffer pages(kRoomyText);
  char* const text = pages.atEnd<char>();
  ask(text);
  return {text, strnlen(text, kRoomyText)};
}

std::string givenText(Subject& subject, VstInt32 opcode, VstInt32 index) {
  return givenText([&](char* text) { subject.dispatch(opcode, index, 0, text); });
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
