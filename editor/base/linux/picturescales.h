// The scales for which the bundle has pictures.
#pragma once

struct PictureScale {
  double scale;        // pixels of the picture for one of the window's
  const char* suffix;  // of its file's name
};
constexpr PictureScale kPictureScales[] = {{1, ""}, {1.5, "@1.5x"}, {2, "@2x"}, {3, "@3x"}};

// That of the picture that the toolkit shows at `scale`, which it chooses among those that it has:
// the same scale, or else the nearest, of two as near the larger.
constexpr const PictureScale& pictureScale(double scale) {
  const auto distance = [scale](double other) {
    return other < scale ? scale - other : other - scale;
  };
  const PictureScale* best = &kPictureScales[0];
  for (const PictureScale& each : kPictureScales) {
    if (distance(each.scale) <= distance(best->scale)) best = &each;
  }
  return *best;
}
