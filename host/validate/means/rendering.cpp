// What a new effect makes of a sound.
#include "host/validate/means/rendering.h"

#include <algorithm>

std::vector<int> equalBlocks(int frames, int block) {
  std::vector<int> blocks;
  for (int begin = 0; begin < frames; begin += block)
    blocks.push_back(std::min(block, frames - begin));
  return blocks;
}

std::vector<int> randomBlocks(Trial& trial, int frames, int longest) {
  std::vector<int> blocks;
  for (int left = frames; left > 0; left -= blocks.back())
    blocks.push_back(trial.randomInt(1, std::min(longest, left)));
  return blocks;
}

template <typename Sample>
Sound<Sample> noise(Trial& trial, int channels, int frames) {
  Sound<Sample> sound(static_cast<std::size_t>(channels),
                      std::vector<Sample>(static_cast<std::size_t>(frames)));
  for (auto& channel : sound) {
    for (Sample& sample : channel) sample = static_cast<Sample>(trial.randomUnit() - 0.5F);
  }
  return sound;
}

template <typename Sample>
Sound<Sample> rendered(Trial& trial, PluginModule& module, const Sound<Sample>& input,
                       std::span<const int> blocks, const Playing<Sample>& playing) {
  Subject subject(module);
  const int longest = *std::max_element(blocks.begin(), blocks.end());
  subject.start(playing.rate, std::max(playing.announced, longest), kIsDouble<Sample>);
  const auto frames = static_cast<int>(input.front().size());
  Stretch<Sample> stretch(subject, frames);
  if (stretch.inputs() != static_cast<int>(input.size()))
    trial.leaveOut("it has not the same inputs each time");
  for (int pin = 0; pin < stretch.inputs(); ++pin)
    std::copy_n(input[static_cast<std::size_t>(pin)].begin(), frames, stretch.in(pin));
  int begin = 0;
  int number = 0;
  for (const int block : blocks) {
    if (playing.before) playing.before(subject, number++);
    if (playing.play)
      playing.play(subject, stretch, begin, block);
    else
      stretch.play(subject, begin, block);
    begin += block;
  }
  return stretch.outputChannels();
}

template <typename Sample>
Sound<Sample> reliablyRendered(Trial& trial, PluginModule& module, const Sound<Sample>& input,
                               std::span<const int> blocks, const Playing<Sample>& playing) {
  trial.step("playing the sound twice in the same way (%s)", kPrecision<Sample>);
  Sound<Sample> first = rendered(trial, module, input, blocks, playing);
  if (!sameBits(first, rendered(trial, module, input, blocks, playing)))
    trial.leaveOut("two effects make different sound of the same (noise, chance or threads)");
  return first;
}

template Sound<float> noise(Trial&, int, int);
template Sound<double> noise(Trial&, int, int);
template Sound<float> rendered(Trial&, PluginModule&, const Sound<float>&, std::span<const int>,
                               const Playing<float>&);
template Sound<double> rendered(Trial&, PluginModule&, const Sound<double>&, std::span<const int>,
                                const Playing<double>&);
template Sound<float> reliablyRendered(Trial&, PluginModule&, const Sound<float>&,
                                       std::span<const int>, const Playing<float>&);
template Sound<double> reliablyRendered(Trial&, PluginModule&, const Sound<double>&,
                                        std::span<const int>, const Playing<double>&);
