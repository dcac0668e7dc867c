// Reads UTF-8 character by character.
#include "platform/validtext.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// Bytes of the character that `lead` begins; 0: none does.
std::size_t lengthFrom(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;  // 0xC0, 0xC1 could only spell what one byte spells
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;  // above lies nothing
  return 0;
}

// Whether `second` may follow `lead`: no longer spelling than needed, no surrogate,
// nothing above U+10FFFF.
bool mayFollow(unsigned char lead, unsigned char second) {
  if (lead == 0xE0) return second >= 0xA0;
  if (lead == 0xED) return second < 0xA0;
  if (lead == 0xF0) return second >= 0x90;
  if (lead == 0xF4) return second < 0x90;
  return true;
}

}  // namespace

std::string validText(std::string_view bytes) {
  std::string text;
  std::size_t at = 0;
  while (at < bytes.size()) {
    const auto lead = static_cast<unsigned char>(bytes[at]);
    const std::size_t length = lengthFrom(lead);
    std::size_t good = length > 0 ? 1 : 0;
    while (good > 0 && good < length && at + good < bytes.size()) {
      const char next = bytes[at + good];
      if (!continuesCharacter(next)) break;
      if (good == 1 && !mayFollow(lead, static_cast<unsigned char>(next))) break;
      ++good;
    }
    if (good > 0 && good == length) {
      text += bytes.substr(at, length);
      at += length;
    } else if (good > 0 && at + good == bytes.size()) {
      break;  // cut off at the end
    } else {
      text += kReplacement;
      ++at;
    }
  }
  return text;
}
