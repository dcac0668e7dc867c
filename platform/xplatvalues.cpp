// Byte order, conversions between normalised values and steps, and the float preferences that are
// not kept.
#include "platform/xplatvalues.h"

#include <algorithm>
#include <cmath>

#include "platform/saturate.h"

void mySwapBytes(void* p) {
  auto* bytes = static_cast<unsigned char*>(p);
  std::reverse(bytes, bytes + 4);
}

void setPrefValue(const char*, float) {}

float getPrefValue(const char*, float defaultValue) {
  return defaultValue;
}

int paramContToLong(float value, int steps) {
  const int step = truncatedToInt32(static_cast<float>(steps) * value);
  return step < steps ? step : steps - 1;
}

float paramLongToCont(int step, int steps) {
  const auto count = static_cast<float>(steps);
  return 0.5F / count + static_cast<float>(step) / count;
}

float long2float(long step, long steps) {
  return (static_cast<float>(step) + 0.5F) / static_cast<float>(steps);
}

long float2long(float value, long steps) {
  const auto product = std::floor(value * static_cast<float>(steps));
  const auto step = truncatedTo<long>(product + 0.5F);
  return step < steps ? step : steps - 1;
}
