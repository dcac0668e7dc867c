// The effect's rule written down once more, on its own: renders raw stereo floats the way every host must.
//
// reference RATE BEFORE AFTER <in >out
// RATE: Hz, at which the host switched the effect on. BEFORE, AFTER: width,baseFreq,emphasis,process,phase, each 0..1;
// the effect was switched on with the first and glides to the second from the first frame on.
// Build without contraction into fused operations: the results are compared bit by bit.
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#define LENGTH 16384  // frames of delay line

struct settings {
  float width, base, emphasis, process, phase;
};

static struct settings parsed(const char* text) {
  struct settings s;
  if (sscanf(text, "%f,%f,%f,%f,%f", &s.width, &s.base, &s.emphasis, &s.process, &s.phase) != 5) {
    fprintf(stderr, "reference: \"%s\" is not five numbers\n", text);
    exit(2);
  }
  return s;
}

static float side_gain(struct settings s) {
  return 2.0F * (s.width * s.width);
}

// Whole frames by which the reading runs ahead of the writing, round the ring.
static int read_offset(struct settings s, int rate) {
  const float hz = 20.0F + 980.0F * (s.base * s.base);
  return (int)((float)LENGTH - (float)rate / hz);
}

static float without_denormal(float x) {
  return (x + 1e-16F) - 1e-16F;
}

int main(int count, char** words) {
  if (count != 4) {
    fprintf(stderr, "usage: reference RATE BEFORE AFTER <in >out\n");
    return 2;
  }
  const int rate = atoi(words[1]);
  const struct settings before = parsed(words[2]);
  const struct settings after = parsed(words[3]);

  // A glide goes 15/16 of its way in 277 ms.
  const double glide_frames = (double)((float)rate * 277.0F) * 0.001;
  const float coefficient = (float)(1.0 - pow(0.0625, 1.0 / glide_frames));
  const int on = after.process + 0.5F >= 1.0F;
  const float sign = after.phase + 0.5F >= 1.0F ? -1.0F : 1.0F;
  const int target_offset = read_offset(after, rate);

  float gain = side_gain(before);
  float emphasis = before.emphasis;
  double offset = read_offset(before, rate);
  float last = 0.0F;
  static float line[LENGTH];
  int newest = 0;
  float in[2];

  while (fread(in, sizeof in[0], 2, stdin) == 2) {
    gain = without_denormal(gain + (side_gain(after) - gain) * coefficient);
    emphasis = without_denormal(emphasis + (after.emphasis - emphasis) * coefficient);
    newest = (newest + 1) % LENGTH;
    const float mid = without_denormal((in[0] + in[1]) * 0.5F);
    line[newest] = mid;
    if (on) {
      const double distance = target_offset - offset;
      if (fabs(distance) > 0.01) {
        double step = coefficient * distance;
        if (step < -0.5) step = -0.5;
        if (step > 1.0) step = 1.0;
        offset += step;
      } else {
        offset = target_offset;
      }
      const int whole = (int)offset;
      const double fraction = offset - whole;
      const double a = line[(newest + whole) % LENGTH];
      const double b = line[(newest + whole + 1) % LENGTH];
      const float delayed = (float)((1.0 - fraction) * a + fraction * b);
      const float side = without_denormal((delayed - last * emphasis) * (sign * gain));
      last = delayed;
      in[0] = mid + side;
      in[1] = mid - side;
    }
    fwrite(in, sizeof in[0], 2, stdout);
  }
  return 0;
}
