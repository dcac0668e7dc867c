// A module that exports more than its entry.
#include "tests/validate/plugins/soundeffect.h"

namespace {

class ExportsMore : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;
};
EFFECT_IN_FILE(exportsmore, ExportsMore);

}  // namespace

extern "C" __attribute__((visibility("default"))) void anotherName() {}
