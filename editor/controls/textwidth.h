// How wide a text is.
#pragma once

#include <string>

#include "vstgui.h"

// Pixels at a scale of 1; 0 where the font cannot be had. text: UTF-8. User-interface thread.
double textWidth(VSTGUI::CFontRef font, const std::string& text);
