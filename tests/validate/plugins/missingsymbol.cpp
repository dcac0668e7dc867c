// A module that needs a function that no library has.
#include "tests/validate/plugins/soundeffect.h"

extern "C" void aFunctionThatNoLibraryHas();

namespace {

class MissingSymbol : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void clear() override { aFunctionThatNoLibraryHas(); }
};
EFFECT_IN_FILE(missingsymbol, MissingSymbol);

}  // namespace
