// The sound card by ALSA: the user's default device, which PipeWire and PulseAudio are behind where
// they run.
#include "host/play/soundcard.h"

#include <alsa/asoundlib.h>

#include <cerrno>

namespace {

// The user's device, with whatever it needs to take floats, two channels and the file's rate.
constexpr const char* kDevice = "plug:default";
constexpr unsigned kLatency = 100000;  // us: heard soon after a slider moves, and safe with 1024
                                       // frames a block
constexpr int kLongestWait = 50;       // ms

// It would write its reasons on the standard error stream.
void sayNothing(const char*, int, const char*, int, const char*, ...) {}

}  // namespace

struct SoundCard::System {
  snd_pcm_t* device = nullptr;

  ~System() {
    if (device != nullptr) {
      snd_pcm_drop(device);
      snd_pcm_close(device);
    }
    snd_config_update_free_global();  // what the library read of its configuration
  }
};

SoundCard::SoundCard(std::unique_ptr<System> opened) : system(std::move(opened)) {}

SoundCard::~SoundCard() = default;

std::unique_ptr<SoundCard> SoundCard::open(int sampleRate, std::string& reason) {
  snd_lib_error_set_handler(sayNothing);
  auto system = std::make_unique<System>();
  int error = snd_pcm_open(&system->device, kDevice, SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK);
  if (error >= 0) {
    error = snd_pcm_set_params(system->device, SND_PCM_FORMAT_FLOAT, SND_PCM_ACCESS_RW_INTERLEAVED,
                               2, static_cast<unsigned>(sampleRate), 1, kLatency);
  }
  if (error >= 0) return std::unique_ptr<SoundCard>(new SoundCard(std::move(system)));
  reason = snd_strerror(error);
  return nullptr;
}

int SoundCard::write(const float* frames, int count) {
  auto taken = snd_pcm_writei(system->device, frames, static_cast<snd_pcm_uframes_t>(count));
  if (taken == -EAGAIN) {
    const int room = snd_pcm_wait(system->device, kLongestWait);
    taken = room < 0 ? room : 0;
  }
  if (taken >= 0) return static_cast<int>(taken);
  // It ran out of sound, the computer slept, a signal came: all that goes on.
  return snd_pcm_recover(system->device, static_cast<int>(taken), 1) < 0 ? -1 : 0;
}
