// Draws mean spectra over a logarithmic frequency axis.
#pragma once

#include <string>
#include <vector>

#include "host/plot/plotcanvas.h"

struct SpectrumCurve {
  std::string name;
  std::vector<double> power;  // as Spectrum::power
  PlotColour colour;
  double width = 2.0;  // pixels
  bool filled = false;
};

// frame: with the labels. Curves are drawn in order, later ones on top. The level axis follows the
// loudest curve.
void drawSpectra(PlotCanvas& canvas, const PlotArea& frame,
                 const std::vector<SpectrumCurve>& curves, int sampleRate);
