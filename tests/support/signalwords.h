// Signals in Linux's words, which the tests expect: macOS has others, "Abort trap: 6".
#pragma once

#include <csignal>
#include <cstring>
#include <string>

// text: with the system's word for a signal in brackets, as programs of ours tell an end.
inline std::string inLinuxWords(std::string text) {
  constexpr struct {
    int number;
    const char* word;
  } kSignals[] = {{SIGABRT, "(Aborted)"},
                  {SIGKILL, "(Killed)"},
                  {SIGSEGV, "(Segmentation fault)"},
                  {SIGTRAP, "(Trace/breakpoint trap)"}};
  for (const auto& signal : kSignals) {
    const std::string here = std::string("(") + strsignal(signal.number) + ")";
    const std::size_t place = text.find(here);
    if (place != std::string::npos) text.replace(place, here.size(), signal.word);
  }
  return text;
}
