// From the pointer's way to a slider's value, in coarse and fine steps.
#pragma once

// The value follows the pointer from an anchor: the press, and each change between coarse and fine.
// Between anchors it depends on the place of the pointer alone. A pointer beyond the end of the
// travel has to come back as far before the handle moves again, and finds the handle at the place
// where it took it.
class HandleDrag {
 public:
  // valuePerPixel: in coarse steps, negative where the value grows to the left. fineDivisor: how
  // much finer the fine steps are.
  HandleDrag(double x, double value, bool fine, double valuePerPixel, double fineDivisor)
      : anchorX(x),
        anchorValue(value),
        coarse(valuePerPixel),
        divisor(fineDivisor),
        lastX(x),
        isFine(fine) {}

  // False: it has not moved, and nothing else is new.
  bool moveTo(double x, bool fine) {
    if (fine != isFine) {  // from where the pointer was last, or the handle would jump
      anchorValue = value();
      anchorX = lastX;
      isFine = fine;
    }
    const bool moved = x != lastX;
    lastX = x;
    return moved;
  }

  double value() const {  // 0..1
    const double perPixel = isFine ? coarse / divisor : coarse;
    const double reached = anchorValue + (lastX - anchorX) * perPixel;
    return reached < 0 ? 0 : reached > 1 ? 1 : reached;
  }

 private:
  double anchorX, anchorValue;
  double coarse, divisor;
  double lastX;
  bool isFine;
};
