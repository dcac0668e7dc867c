// Pixel differences outside texts, blurred differences inside.
#include "picturematch.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kThreshold = 24;  // of 255: a smaller difference of an artwork's pixel is none
constexpr double kArtworkLimit = 0.002;  // 100 pixels of the window
constexpr int kTile = 16;                // pixels each way
constexpr double kTileLimit = 0.12;      // 30 pixels of a tile
constexpr double kTextLimit = 0.13;      // one digit of three is 0.14 and more
constexpr int kBlur = 1;                 // pixels to each side

Area cut(const Area& area, const Area& to) {
  return {std::max(area.left, to.left), std::max(area.top, to.top), std::min(area.right, to.right),
          std::min(area.bottom, to.bottom)};
}

bool inAny(const std::vector<Area>& areas, int x, int y) {
  return std::any_of(areas.begin(), areas.end(),
                     [&](const Area& area) { return area.contains(x, y); });
}

// The mean brightness around a place, 0..255; beyond the edges the picture goes on as it ends.
double brightness(const Picture& picture, int x, int y) {
  int sum = 0;
  for (int row = y - kBlur; row <= y + kBlur; ++row) {
    for (int column = x - kBlur; column <= x + kBlur; ++column) {
      const std::uint32_t pixel = picture.at(std::clamp(column, 0, picture.width - 1),
                                             std::clamp(row, 0, picture.height - 1));
      for (const int shift : {0, 8, 16}) sum += static_cast<int>(pixel >> shift & 0xFFU);
    }
  }
  constexpr int kPixels = (2 * kBlur + 1) * (2 * kBlur + 1);
  return sum / (3.0 * kPixels);
}

// Everything that is not as bright as the brightest place.
double inkOf(const Picture& picture, const Area& area) {
  double brightest = 0, sum = 0;
  int pixels = 0;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x, ++pixels) {
      const double here = brightness(picture, x, y);
      brightest = std::max(brightest, here);
      sum += here;
    }
  }
  return brightest * pixels - sum;
}

double textDifference(const Picture& one, const Picture& other, const Area& area) {
  double least = -1;
  for (const int right : {0, -1, 1}) {
    for (const int down : {0, -1, 1}) {
      double sum = 0;
      for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
          sum += std::abs(brightness(one, x, y) - brightness(other, x + right, y + down));
        }
      }
      if (least < 0 || sum < least) least = sum;
    }
  }
  const double ink = std::max(inkOf(one, area), inkOf(other, area));
  return least == 0 ? 0 : least / std::max(ink, least);
}

}  // namespace

bool PictureMatch::alike() const {
  return artwork <= kArtworkLimit && tile <= kTileLimit && text <= kTextLimit;
}

std::ostream& operator<<(std::ostream& out, const PictureMatch& match) {
  return out << "of the artwork " << 100 * match.artwork << " % differ, in one place "
             << 100 * match.tile << " %, of a text " << 100 * match.text << " %";
}

PictureMatch matchPictures(const Picture& one, const Picture& other,
                           const std::vector<Area>& texts) {
  if (one.width != other.width || one.height != other.height || one.pixels.empty())
    return {1, 1, 1};
  PictureMatch match;
  int pixels = 0, differing = 0;
  for (int top = 0; top < one.height; top += kTile) {
    for (int left = 0; left < one.width; left += kTile) {
      const Area tile = cut({left, top, left + kTile, top + kTile}, one.whole());
      int differingHere = 0;
      for (int y = tile.top; y < tile.bottom; ++y) {
        for (int x = tile.left; x < tile.right; ++x) {
          if (inAny(texts, x, y)) continue;
          ++pixels;
          if (channelDifference(one.at(x, y), other.at(x, y)) > kThreshold) ++differingHere;
        }
      }
      differing += differingHere;
      match.tile = std::max(match.tile, static_cast<double>(differingHere) / (kTile * kTile));
    }
  }
  if (pixels > 0) match.artwork = static_cast<double>(differing) / pixels;
  for (const Area& text : texts) {
    const Area inside = cut(text, one.whole());
    if (inside.right <= inside.left || inside.bottom <= inside.top) continue;
    match.text = std::max(match.text, textDifference(one, other, inside));
  }
  return match;
}
