// Which adapter an effect gets.
#include "host/state/effectadapter.h"

#include "effect/parameters.h"

std::unique_ptr<EffectAdapter> adapterFor(Effect& effect) {
  if (effect.record().uniqueID == kTrelvanID) return trelvanAdapter(effect);
  return genericAdapter(effect);
}
