// A text that an effect was asked for, and how much of the host's memory it wrote for that.
#pragma once

#include <functional>
#include <string>

#include "host/validate/subject.h"

struct GuardedText {
  std::string text;     // up to its zero, from a buffer of zeros as hosts give it
  std::string again;    // the same, from a buffer of something else
  std::size_t written;  // bytes from the beginning of the buffer to the last that was changed
  bool isEnded;         // by a zero of its own, where anything was written
  bool wroteBefore;     // the buffer's beginning
  VstIntPtr result;
};

// Asks twice. A text without bounds crashes while it is written.
GuardedText askText(Subject& subject, VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0);
// The text as a host has it that looks no further, for checks of something else: of room for 1024
// bytes, after which a text crashes too.
std::string givenText(Subject& subject, VstInt32 opcode, VstInt32 index = 0);
std::string givenText(const std::function<void(char* text)>& ask);

bool isUtf8(const std::string& text);
bool hasControls(const std::string& text);
// For verdicts: what is not ASCII as "\xe4".
std::string shown(const std::string& text);
