// A plug-in's ports in Turtle.
#pragma once

#include <ostream>

#include "formats/lv2/shape.h"
#include "formats/record/hostedeffect.h"

namespace turtle {

// All of them in their order, as objects of lv2:port.
void writePorts(std::ostream& out, const Lv2Shape& shape, HostedEffect& effect);

}  // namespace turtle
