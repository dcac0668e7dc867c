// What an effect did to the stereo image of a signal.
#include "host/plot/stereoanalysis.h"

#include <algorithm>
#include <array>

#include "host/measure/midside.h"

namespace {

constexpr int kPiece = 1024;  // frames, whose mid and side are worked out at a time

}  // namespace

void StereoImage::add(const double* left, const double* right, int count) {
  std::array<double, kPiece> mids;
  std::array<double, kPiece> sides;
  for (int first = 0; first < count; first += kPiece) {
    const int piece = std::min(kPiece, count - first);
    for (int i = 0; i < piece; ++i) {
      const auto at = static_cast<std::size_t>(i);
      mids[at] = midOf(left[first + i], right[first + i]);
      sides[at] = sideOf(left[first + i], right[first + i]);
    }
    aside.add(mids.data(), sides.data(), piece);
  }
  measured.add(left, right, count);
}

const Goniometer& StereoImage::goniometer() const {
  aside.finish();
  return plane;
}

std::vector<double> StereoImage::midPower() const {
  aside.finish();
  return midSpectrum.power();
}

std::vector<double> StereoImage::sidePower() const {
  aside.finish();
  return sideSpectrum.power();
}

void StereoAnalysis::addBefore(const double* left, const double* right, int frames) {
  imageBefore.add(left, right, frames);
  fold.addBefore(left, right, frames);
}

void StereoAnalysis::addAfter(const double* left, const double* right, int frames) {
  imageAfter.add(left, right, frames);
  fold.addAfter(left, right, frames);
}
