// Pictures of the window: areas, differences, and PNG files.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

// Pixels; right and bottom are outside.
struct Area {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  constexpr int centreX() const { return (left + right) / 2; }
  constexpr int centreY() const { return (top + bottom) / 2; }
  constexpr bool contains(int x, int y) const {
    return x >= left && x < right && y >= top && y < bottom;
  }
  constexpr bool contains(const Area& other) const {
    return other.left >= left && other.right <= right && other.top >= top && other.bottom <= bottom;
  }
  bool operator==(const Area&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Area& area);

// 0xRRGGBB, row by row.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  Area whole() const { return {0, 0, width, height}; }
  std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
  bool operator==(const Picture&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Picture& picture);  // for failed tests: its size

// The largest difference of a colour channel, 0..255.
int channelDifference(std::uint32_t one, std::uint32_t other);

// The smallest area that holds every pixel that differs; empty (all 0) where none does. Same size.
Area differingArea(const Picture& one, const Picture& other);

// How many pixels of the area differ by more than `threshold` in some channel, as a share of them
// all, 0..1.
double differingShare(const Picture& one, const Picture& other, const Area& area,
                      int threshold = 0);

inline bool sameIn(const Area& area, const Picture& one, const Picture& other) {
  return differingShare(one, other, area) == 0;
}

// A file that is missing or no PNG is a picture without pixels.
Picture readPicture(const std::string& path);
bool writePicture(const Picture& picture, const std::string& path);
// What is alike in grey and pale, what differs in red.
Picture differencePicture(const Picture& one, const Picture& other);
