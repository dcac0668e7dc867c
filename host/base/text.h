// Small pieces of text that messages, reports and pictures are made of.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// As printf; the result may have any length. Any thread.
std::string formatted(const char* format, ...) __attribute__((format(printf, 1, 2)));

// ASCII letters only, so that bytes of other characters stay what they are.
std::string lowerCase(std::string_view text);
// Equal but for the case of ASCII letters.
bool sameLetters(std::string_view a, std::string_view b);

// Names are any bytes. Control characters, which would move a terminal's cursor or end the line,
// become "?".
std::string onOneLine(std::string_view text);

// "-3.1", "+1.2", "0.0", "-inf" for 0. magnitude: 1 is full scale. One decimal.
std::string decibelText(double magnitude);
// "0:03.250", "1:02:03.250".
std::string durationText(double seconds);
std::string durationText(std::int64_t frames, int sampleRate);
std::string channelText(int channels);  // "mono", "stereo"
