// How often a stereo signal is where in the plane of side and mid.
#pragma once

#include <cstdint>
#include <vector>

// A square of cells around the origin that grows with the signal: the range doubles as soon as a
// frame lies outside.
class Goniometer {
 public:
  static constexpr int kCells = 512;  // columns and rows

  Goniometer() : counts(static_cast<std::size_t>(kCells) * kCells), full(counts.size()) {}

  // Frames that are infinite or no number are left out.
  void add(const float* mids, const float* sides, int frames);
  void add(double left, double right);

  // the cells cover -range..range both ways; 1 is full scale
  double range() const { return halfWidth; }
  // column: from right-heavy side (negative) to the left; row: mid, from -range up.
  std::uint32_t count(int column, int row) const {
    const auto cell = static_cast<std::size_t>(row) * kCells + static_cast<std::size_t>(column);
    return full[cell] << 16U | counts[cell];
  }

 private:
  void addPiece(const float* mids, const float* sides, int frames);
  void doubleRange();

  // In two parts: the one that changes with every frame stays in the fast memory.
  std::vector<std::uint16_t> counts;
  std::vector<std::uint32_t> full;  // how often a count was full
  double halfWidth = 1.0 / 4096;    // a quiet signal still fills the square
};
