// Texts and numbers as Turtle has them.
#pragma once

#include <string>

namespace turtle {

std::string quoted(const std::string& text);
std::string number(float value);  // the shortest that reads as the same value again, with a point

}  // namespace turtle
