// The face of the picture's texts: every Mac has the displays'.
#include "host/plot/plotface.h"

void selectPlotFace(cairo_t* context, bool bold) {
  cairo_select_font_face(context, "Helvetica", CAIRO_FONT_SLANT_NORMAL,
                         bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
}
