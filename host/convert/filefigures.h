// The figures of a file as it is written, and of its mono fold.
#pragma once

#include "host/measure/figures.h"
#include "host/measure/folderror.h"

struct WrittenFigures {
  Figures sound;
  double foldError = 0.0;  // as FoldError::largest
};

// Before and after as FoldError takes them.
class FileFigures {
 public:
  // gain: of what is written, a factor.
  FileFigures(int sampleRate, double gain) : sound(2, sampleRate), fold(gain) {}

  void addBefore(const double* left, const double* right, int frames) {
    fold.addBefore(left, right, frames);
  }
  void addAfter(const double* left, const double* right, int frames) {
    fold.addAfter(left, right, frames);
    sound.add(left, right, frames);
  }

  // After the last frame, once.
  WrittenFigures finish() { return {sound.finish(), fold.largest()}; }

 private:
  FigureMeter sound;
  FoldError fold;
};
