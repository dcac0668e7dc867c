// The face of the picture's texts, the same on every machine of a kind.
#pragma once

#include <cairo.h>

// For the texts that are drawn on the context from now on. One thread at a time.
void selectPlotFace(cairo_t* context, bool bold);
