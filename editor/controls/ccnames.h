// The names of the MIDI continuous controllers.
#pragma once

constexpr int kCcNameCount = 130;  // controllers 0..127, "not assigned", and the empty text

extern const char* const ccnames[kCcNameCount];
