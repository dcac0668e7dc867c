// A sound file in memory that is read round and round.
#include "host/play/loop.h"

#include <algorithm>

#include "host/base/failure.h"
#include "host/base/standardstreams.h"
#include "host/sound/finitesound.h"

namespace {

constexpr int kPiece = 16384;  // frames read at once

}  // namespace

Loop::Loop(const std::filesystem::path& file, bool salvage) {
  SoundReader reader(file, {salvage});
  rate = reader.sampleRate();
  readAll(reader, shownInput(file));
  found = reader.damage();
  if (left.empty()) throw Failure(shownInput(file).string() + ": holds no sound (0 frames)");
}

void Loop::readAll(SoundReader& reader, const std::filesystem::path& file) {
  std::vector<double> l(kPiece);
  std::vector<double> r(kPiece);
  int count = 0;
  while ((count = reader.read(l.data(), r.data(), kPiece)) > 0) {
    checkFinite(l.data(), r.data(), count, static_cast<std::int64_t>(left.size()), rate,
                file.string() + ": holds");
    const auto append = [count](const std::vector<double>& from, std::vector<float>& to) {
      std::transform(from.begin(), from.begin() + count, std::back_inserter(to),
                     [](double sample) { return static_cast<float>(sample); });
    };
    append(l, left);
    if (reader.channels() == 2) append(r, right);
  }
  left.shrink_to_fit();
  right.shrink_to_fit();
}

void Loop::read(double* toLeft, double* toRight, int count) {
  const std::vector<float>& other = right.empty() ? left : right;
  while (count > 0) {
    const std::size_t piece = std::min(static_cast<std::size_t>(count), left.size() - position);
    std::copy_n(left.data() + position, piece, toLeft);
    std::copy_n(other.data() + position, piece, toRight);
    toLeft += piece;
    toRight += piece;
    count -= static_cast<int>(piece);
    position = (position + piece) % left.size();
  }
}
