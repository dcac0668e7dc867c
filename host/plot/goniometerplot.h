// Draws a goniometer with its axes.
#pragma once

#include <string>

#include "host/plot/goniometer.h"
#include "host/plot/plotcanvas.h"

// The largest |mid| or |side| that was met, to the cell; 0 where there was nothing but silence.
double extentOf(const Goniometer& goniometer);

// frame: the square with its labels around. extent: of mid and side alike, where the axes end;
// above 0.
void drawGoniometer(PlotCanvas& canvas, const PlotArea& frame, const std::string& title,
                    const Goniometer& goniometer, double extent);
