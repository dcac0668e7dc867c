// A module that needs a function of a library that widen has and the module does not name.
#include "tests/validate/plugins/soundeffect.h"

extern "C" int cairo_version();

namespace {

class TakesFromHost : public SoundEffect {
 public:
  explicit TakesFromHost(audioMasterCallback callback) : SoundEffect(callback) {
    record.version = cairo_version();
  }
};
EFFECT_IN_FILE(takesfromhost, TakesFromHost);

}  // namespace
