// Seeds of sequences of calls.
#include "fuzz/seeds.h"

using presetimage::Bytes;

// Which calls these are: fuzz/callsequence.cpp. In front stands what the host does from inside.
void fuzz::addCallSeeds(Corpus& corpus) {
  const Bytes life = {0,  0, 0,                 // nothing from inside
                      14, 1,                    // on
                      3,  0, 100, 3,  1,   30,  // width and base frequency
                      5,  0, 64,  10, 4,   1,   // 64 frames, the first 10 by themselves
                      7,  0, 3,   2,  200,      // the state is taken, emphasis set
                      6,  1, 64,  33, 4,   2,   // double precision, in place
                      8,  0, 255, 0,  14,  0};  // the state is put back; off
  corpus.add("hostcalls", "life", life);
  Bytes nested = life;
  nested[0] = 2;
  corpus.add("hostcalls", "life-with-nested-chunks", nested);
  corpus.add("hostcalls", "texts",
             {0,  0, 0, 1,  0, 0,  1, 1,  1, 1,  2, 2, 2,   4,   'n', 'a', 'm', 'e', 10,  0,  0,
              10, 0, 2, 12, 0, 12, 1, 12, 2, 12, 5, 7, '2', 'i', 'n', '2', 'o', 'u', 't', 13, 3});
  corpus.add("hostcalls", "mono",
             {0, 0, 0, 11, 3, 4, 0, 15, 2, 0, 0, 14, 1, 5, 5, 100, 7, 4, 9, 5, 3, 9, 0, 0, 1});
  corpus.add("hostcalls", "rates",
             {0, 0, 0, 0, 10, 0, 0, 0, 0, 0, 0, 0, 0x80, 0x3B, 0x47, 14, 1, 5, 2, 50, 3, 5, 9});
  Bytes longName = {0, 0, 0, 2, 60};
  longName.insert(longName.end(), 60, 'n');
  corpus.add("hostcalls", "long-name", longName);
  corpus.add("hostcalls", "odd-values", {0, 0, 0, 14,  1, 3, 0,   240, 5, 0,  20, 3, 4,
                                         1, 3, 1, 241, 3, 2, 246, 5,   0, 20, 3,  4, 2});
}
