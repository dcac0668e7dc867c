// What chance decides in a test: the same for the same seed.
#pragma once

#include <cstdint>
#include <random>

class Chance {
 public:
  explicit Chance(std::uint32_t seed) : bits(seed) {}

  int below(int end) { return static_cast<int>(bits() % static_cast<std::uint32_t>(end)); }
  bool oneIn(int n) { return below(n) == 0; }

 protected:
  std::mt19937 bits;
};
