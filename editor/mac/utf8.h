// Whether bytes are UTF-8 text: the toolkit makes nil of others, and the system's panels and fields end the process.
#pragma once

#include <cstddef>
#include <string_view>

// Length in bytes of the longest beginning that is whole characters; the text's own where all of it is.
constexpr std::size_t utf8Length(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t more = first < 0x80   ? 0
                             : first < 0xC2 ? 4
                             : first < 0xE0 ? 1
                             : first < 0xF0 ? 2
                             : first < 0xF5 ? 3
                                            : 4;
    if (more > 3 || text.size() - at <= more) return at;
    for (std::size_t i = 1; i <= more; ++i) {
      const auto next = static_cast<unsigned char>(text[at + i]);
      if (next < 0x80 || next > 0xBF) return at;
      // Overlong forms, surrogates, and what lies above the last plane.
      if (i == 1 && ((first == 0xE0 && next < 0xA0) || (first == 0xED && next > 0x9F) ||
                     (first == 0xF0 && next < 0x90) || (first == 0xF4 && next > 0x8F))) {
        return at;
      }
    }
    at += more + 1;
  }
  return at;
}

constexpr bool isUtf8(std::string_view text) {
  return utf8Length(text) == text.size();
}
