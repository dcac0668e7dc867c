// Reads how parameters move in the course of a sound.
#pragma once

#include <string>
#include <vector>

#include "host/vst/effect.h"

struct AutomationPoint {
  double seconds = 0.0;  // from the beginning of the sound
  float value = 0.0F;    // 0..1
};

// One parameter's points, in the order of their times; those of one time as they were written.
struct AutomationLane {
  int parameter = 0;  // index
  std::vector<AutomationPoint> points;
};

// Lines of seconds, a parameter's name or index, and a value as for --set: "1.5 width 80%". Empty
// lines and those that open with # are left out. The effect is asked for names and values, and its
// parameters are as they were after. Throws Failure, naming the line.
std::vector<AutomationLane> readAutomation(Effect& effect, const std::string& file);
