// How often a stereo signal is where in the plane of side and mid.
#pragma once

#include <cstdint>
#include <vector>

// A square of cells around the origin that grows with the signal: the range doubles as soon as a
// frame lies outside.
class Goniometer {
 public:
  static constexpr int kCells = 512;  // columns and rows

  Goniometer() : counts(static_cast<std::size_t>(kCells) * kCells) {}

  void add(double left, double right);

  // the cells cover -range..range both ways; 1 is full scale
  double range() const { return halfWidth; }
  // column: from right-heavy side (negative) to the left; row: mid, from -range up.
  std::uint32_t count(int column, int row) const {
    return counts[static_cast<std::size_t>(row) * kCells + static_cast<std::size_t>(column)];
  }

 private:
  void doubleRange();

  std::vector<std::uint32_t> counts;
  double halfWidth = 1.0 / 4096;  // a quiet signal still fills the square
};
