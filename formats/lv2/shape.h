// A plug-in's ports in their order: audio in, audio out, then the effect's parameters.
#pragma once

#include <cstdint>
#include <string_view>

struct Lv2Shape {
  const char* uri;
  int inputs;  // 1 or 2

  static constexpr int kOutputs = 2;  // left and right
  constexpr std::uint32_t firstOutput() const { return static_cast<std::uint32_t>(inputs); }
  constexpr std::uint32_t firstControl() const { return firstOutput() + kOutputs; }
};

// The parameter that hosts get as their bypass: off, it passes the input on bit by bit.
constexpr std::string_view kLv2EnabledName = "process";
