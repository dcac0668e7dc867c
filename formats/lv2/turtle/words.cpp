// Quotes texts, and writes numbers whatever language is set.
#include "formats/lv2/turtle/words.h"

#include <charconv>
#include <iterator>

namespace turtle {

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result + '"';
}

std::string number(float value) {
  char text[32];
  const auto end = std::to_chars(std::begin(text), std::end(text), value, std::chars_format::fixed);
  std::string result(std::begin(text), end.ptr);
  return result.find('.') == std::string::npos ? result + ".0" : result;
}

}  // namespace turtle
