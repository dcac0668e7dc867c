// Makes any bytes a text that can be shown, and tells its characters apart.
#pragma once

#include <string>
#include <string_view>

// Whether a byte of UTF-8 belongs to the character that an earlier one begins: 10xxxxxx.
constexpr bool continuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Preset names are 24 bytes of whatever a host or a file put there, and may end inside a character.
// Returns UTF-8: a character that lacks its end is left out, any other byte that does not belong
// becomes U+FFFD. The text libraries print a warning for each text that is not UTF-8. Any thread;
// nothing but the standard library is needed.
std::string validText(std::string_view bytes);
