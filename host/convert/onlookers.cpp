// Those who look at a sound on its way through an effect.
#include "host/convert/onlookers.h"

#include "host/plot/plot.h"

Onlookers::Onlookers(const Arguments& arguments, const Job& job, int channels, int sampleRate,
                     double gain)
    : canNarrow(channels > 1) {
  if (job.plot) picture.emplace(sampleRate, gain);
  if (arguments.json) figures.emplace(sampleRate, gain);
}

void Onlookers::seeInput(const double* left, const double* right, int frames) {
  if (canNarrow) before.add(left, right, frames);
  if (picture) picture->addBefore(left, right, frames);
  if (figures) figures->addBefore(left, right, frames);
}

void Onlookers::seeOutput(const double* left, const double* right, int frames) {
  if (canNarrow) after.add(left, right, frames);
}

void Onlookers::watch(FileOutput& output) {
  if (!picture && !figures) return;
  output.watch([this](const double* left, const double* right, int frames) {
    if (picture) picture->addAfter(left, right, frames);
    if (figures) figures->addAfter(left, right, frames);
  });
}

void Onlookers::tell(Conversion& done) {
  done.sideToMidBefore = before.sideToMid();
  done.sideToMid = after.sideToMid();
  if (figures) done.figures = figures->finish();
}

std::unique_ptr<TemporaryFile> Onlookers::draw(const Conversion& done, const Job& job,
                                               bool replace) const {
  if (!picture) return nullptr;
  return drawPlot(*picture, captionOf(done, job), *job.plot, replace);
}
