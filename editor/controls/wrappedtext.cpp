// Takes characters to a line until one does not fit, and goes back to the last blank.
#include "editor/controls/wrappedtext.h"

#include <algorithm>

#include "platform/validtext.h"

namespace {

// Where the character after the one at `at` begins.
std::size_t nextCharacter(const std::string& text, std::size_t at) {
  do {
    ++at;
  } while (at < text.size() && continuesCharacter(text[at]));
  return at;
}

}  // namespace

std::vector<std::string> wrappedText(const std::string& text, double width,
                                     const std::function<double(const std::string&)>& widthOf) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  for (;;) {
    const std::size_t lineEnd = std::min(text.find('\n', begin), text.size());
    std::size_t end = begin;
    std::size_t blank = std::string::npos;
    while (end < lineEnd) {
      const std::size_t next = nextCharacter(text, end);
      // one character stands whatever its width, or the text would never end
      if (end > begin && widthOf(text.substr(begin, next - begin)) > width) break;
      if (text[end] == ' ') blank = end;
      end = next;
    }
    if (end == lineEnd) {
      lines.push_back(text.substr(begin, end - begin));
      if (lineEnd == text.size()) return lines;
      begin = lineEnd + 1;
      continue;
    }
    if (text[end] == ' ') blank = end;
    const bool atBlank = blank != std::string::npos && blank > begin;
    lines.push_back(text.substr(begin, (atBlank ? blank : end) - begin));
    begin = atBlank ? blank + 1 : end;
  }
}
