// What a new effect makes of a sound, for checks that compare two ways to play it.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "host/validate/means/sound.h"

// How a host could play a stretch of sound.
template <typename Sample>
struct Playing {
  double rate = 48000.0;  // Hz
  int announced = 0;      // frames; 0: the longest of the blocks
  // Called with each block in turn, sound in and out of the stretch's own buffers where empty.
  std::function<void(Subject&, Stretch<Sample>&, int begin, int frames)> play;
  // Called in front of each block.
  std::function<void(Subject&, int block)> before;
};

// Blocks of one size, the last one shorter.
std::vector<int> equalBlocks(int frames, int block);
// Blocks of 1 to `longest` frames.
std::vector<int> randomBlocks(Trial& trial, int frames, int longest);

// Both signs, different in every channel.
template <typename Sample>
Sound<Sample> noise(Trial& trial, int channels, int frames);

// By an effect of its own. input: as many channels as it takes; blocks: their sizes, which are the
// input's length together.
template <typename Sample>
Sound<Sample> rendered(Trial& trial, PluginModule& module, const Sound<Sample>& input,
                       std::span<const int> blocks, const Playing<Sample>& playing = {});

// The same, and the check is left out where a second effect makes something else of it: noise,
// chance or the time of day is at work there.
template <typename Sample>
Sound<Sample> reliablyRendered(Trial& trial, PluginModule& module, const Sound<Sample>& input,
                               std::span<const int> blocks, const Playing<Sample>& playing = {});
