// Small pieces of text that messages, reports and pictures are made of.
#pragma once

#include <cstdint>
#include <string>

// As printf; the result may have any length. Any thread.
std::string formatted(const char* format, ...) __attribute__((format(printf, 1, 2)));

// "-3.1", "+1.2", "0.0", "-inf" for 0. magnitude: 1 is full scale. One decimal.
std::string decibelText(double magnitude);
// "0:03.250", "1:02:03.250".
std::string durationText(double seconds);
std::string channelText(int channels);  // "mono", "stereo"
