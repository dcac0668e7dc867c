// Small pieces of text.
#include "host/base/text.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>

std::string formatted(const char* format, ...) {
  va_list values;
  va_start(values, format);
  va_list again;
  va_copy(again, values);
  // va_start has set it: the analyzer loses sight of that across va_copy
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
  const int length = std::vsnprintf(nullptr, 0, format, values);
  va_end(values);
  std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
  if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
  va_end(again);
  return text;
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return lower;
}

bool sameLetters(std::string_view a, std::string_view b) {
  return lowerCase(a) == lowerCase(b);
}

// Of UTF-8 also the control characters U+0080 to U+009F, which begin with C2.
std::string onOneLine(std::string_view text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : '\0';
    const bool wide = byte == 0xC2 && next >= 0x80 && next < 0xA0;
    if (wide) ++i;
    line += wide || byte < ' ' || byte == 0x7F ? '?' : text[i];
  }
  return line;
}

std::string decibelText(double magnitude) {
  if (!(magnitude > 0.0)) return "-inf";
  const std::string text = formatted("%+.1f", 20.0 * std::log10(magnitude));
  return text == "-0.0" || text == "+0.0" ? "0.0" : text;
}

std::string durationText(double seconds) {
  const auto total = static_cast<long long>(std::llround(seconds * 1000.0));
  const long long minutes = total / 60000;
  const std::string secondsText = formatted("%02lld.%03lld", total / 1000 % 60, total % 1000);
  if (minutes >= 60) return formatted("%lld:%02lld:", minutes / 60, minutes % 60) + secondsText;
  return formatted("%lld:", minutes) + secondsText;
}

std::string durationText(std::int64_t frames, int sampleRate) {
  return durationText(static_cast<double>(frames) / sampleRate);
}

std::string channelText(int channels) {
  return channels == 1 ? "mono" : channels == 2 ? "stereo" : std::to_string(channels) + " channels";
}
