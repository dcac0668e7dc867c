// Writes the fuzz targets' seeds into a folder.
#include <cstdio>

#include "fuzz/seeds.h"

int main(int count, char** words) {
  if (count != 2) {
    std::fprintf(stderr, "usage: makecorpus FOLDER\n");
    return 2;
  }
  fuzz::Corpus corpus(words[1]);
  fuzz::addImageSeeds(corpus);
  fuzz::addCallSeeds(corpus);
  fuzz::addWordSeeds(corpus);
  fuzz::addSoundSeeds(corpus);
  if (corpus.complete()) return 0;
  std::fprintf(stderr, "makecorpus: %s could not be written\n", words[1]);
  return 1;
}
