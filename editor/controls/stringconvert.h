// Functions that turn a display's float into its text, and the names of MIDI controllers.
#pragma once

// Each writes one zero-terminated text of at most 16 bytes for values in the ranges named, and
// never more than 32 for any. Every conversion to an integer truncates toward zero. Any thread.

void strictStringConvert(float value, char* text);  // the whole number
void stepStringConvert(float value, char* text);  // the same under the name that step displays use
void percentStringConvert(float value, char* text);        // 0..1 as "50%"
void dampStringConvert(float value, char* text);           // 0..1 as "closed", "50%", "thru"
void parameterNameStringConvert(float value, char* text);  // 0.0, 0.1 .. 0.4 select a caption
void frequencyStringConvert(float value, char* text);      // 0..20000 Hz as "440Hz", "1.5kHz"
void dBStringConvert(float value, char* text);             // a power ratio as "-3 dB"
void convertCC(float value, char* text);                   // 0..1 selects a MIDI controller's name
