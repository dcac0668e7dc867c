// Effects that change their host, or depend on how it calculates and writes numbers.
#include <cfenv>
#include <clocale>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "tests/validate/plugins/flushing.h"
#include "tests/validate/plugins/soundeffect.h"

namespace {

// Does something once when it is opened.
class Opener : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  virtual void open() = 0;
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effOpen) open();
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
};

class IgnoresBrokenPipes : public Opener {
 public:
  using Opener::Opener;

 protected:
  void open() override { std::signal(SIGPIPE, SIG_IGN); }
};
EFFECT_IN_FILE(ignoresbrokenpipes, IgnoresBrokenPipes);

class ChoosesTheLocale : public Opener {
 public:
  using Opener::Opener;

 protected:
  void open() override {
    // The second is macOS's.
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) std::setlocale(LC_CTYPE, "en_US.UTF-8");
  }
};
EFFECT_IN_FILE(choosesthelocale, ChoosesTheLocale);

class ChangesTheEnvironment : public Opener {
 public:
  using Opener::Opener;

 protected:
  void open() override { setenv("SOUND_WAS_HERE", "1", 1); }
};
EFFECT_IN_FILE(changestheenvironment, ChangesTheEnvironment);

class Prints : public Opener {
 public:
  using Opener::Opener;

 protected:
  void open() override { std::puts("Hello, host"); }
};
EFFECT_IN_FILE(prints, Prints);

class FlushesDenormals : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    setFlushing(true);
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(flushesdenormals, FlushesDenormals);

class KeepsDenormals : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    setFlushing(false);
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(keepsdenormals, KeepsDenormals);

class RoundsToNearest : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    std::fesetround(FE_TONEAREST);
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(roundstonearest, RoundsToNearest);

// By way of a denormal number, which is nothing where they are flushed.
float throughDenormal(float value) {
  constexpr float kDown = 1e-20F;
  const volatile float small = value * std::numeric_limits<float>::min() * 1e-3F;
  return small / std::numeric_limits<float>::min() * 1e3F + kDown;
}

class CalculatesInDenormals : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    for (VstInt32 frame = 0; frame < frames; ++frame)
      out[0][frame] = throughDenormal(out[0][frame]);
  }
};
EFFECT_IN_FILE(calculatesindenormals, CalculatesInDenormals);

// A display of its own.
class Displayer : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  virtual void display(float value, char* text, std::size_t size) = 0;
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode != effGetParamDisplay) return SoundEffect::dispatch(opcode, index, value, ptr, opt);
    display(getParameter(index), static_cast<char*>(ptr), kVstMaxParamStrLen);
    return 0;
  }
};

class DisplaysDenormals : public Displayer {
 public:
  using Displayer::Displayer;

 protected:
  void display(float value, char* text, std::size_t size) override {
    std::snprintf(text, size, "%d", static_cast<int>(throughDenormal(value) * 100.0F + 0.5F));
  }
};
EFFECT_IN_FILE(displaysdenormals, DisplaysDenormals);

class DisplaysACommaAbroad : public Displayer {
 public:
  using Displayer::Displayer;

 protected:
  void display(float value, char* text, std::size_t size) override {
    std::snprintf(text, size, "%.2f", static_cast<double>(value));
  }
};
EFFECT_IN_FILE(displaysacommaabroad, DisplaysACommaAbroad);

class DisplaysAsTheHostRounds : public Displayer {
 public:
  using Displayer::Displayer;

 protected:
  void display(float value, char* text, std::size_t size) override {
    std::snprintf(text, size, "%d", static_cast<int>(std::lrint(value * 99.9F)));
  }
};
EFFECT_IN_FILE(displaysasthehostrounds, DisplaysAsTheHostRounds);

class SavesACommaAbroad : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr giveChunk(void** bytes, bool) override {
    std::snprintf(text, sizeof text, "%f;%f", static_cast<double>(getParameter(0)),
                  static_cast<double>(getParameter(1)));
    *bytes = text;
    return static_cast<VstIntPtr>(std::strlen(text)) + 1;
  }
  VstIntPtr takeChunk(const void* bytes, VstIntPtr, bool) override {
    char* rest = nullptr;
    setParameter(0, std::strtof(static_cast<const char*>(bytes), &rest));
    if (*rest == ';') setParameter(1, std::strtof(rest + 1, nullptr));
    return 1;
  }

 private:
  char text[64] = "";
};
EFFECT_IN_FILE(savesacommaabroad, SavesACommaAbroad);

}  // namespace
