// Byte order, conversions between normalised values and steps, and float preferences. Any thread.
#pragma once

// Reverses the four bytes at p, of an integer or a float alike.
void mySwapBytes(void* p);

// Float preferences, of which this program keeps none: the first does nothing, the second returns
// the default.
void setPrefValue(const char* key, float value);
float getPrefValue(const char* key, float defaultValue);

// Between a normalised value, 0..1, and one of `steps` equal bins. All arithmetic in float. value 1
// is in the last bin; a negative value gives 0 or a negative step.
int paramContToLong(float value, int steps);  // trunc(steps * value)
float paramLongToCont(int step, int steps);   // 0.5 / steps + step / steps, the bin's centre
float long2float(long step, long steps);      // (step + 0.5) / steps
long float2long(float value, long steps);     // trunc(floor(value * steps) + 0.5)
