// A sound card for ALSA that takes all it is given at once, and is gone after TRELVAN_CARD_FRAMES
// frames; without that it hears nothing, and its buffer stays full.
#include <alsa/asoundlib.h>
#include <alsa/pcm_external.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

namespace {

constexpr snd_pcm_uframes_t kHeld = 64;  // frames in its buffer, or it would have run out of sound

snd_pcm_ioplug_t card;
snd_pcm_uframes_t written = 0;
snd_pcm_uframes_t most = 0;  // 0: it stands still

int nothing(snd_pcm_ioplug_t*) {
  return 0;
}

snd_pcm_sframes_t pointer(snd_pcm_ioplug_t* plug) {
  if (most == 0 || written < kHeld) return 0;
  return static_cast<snd_pcm_sframes_t>((written - kHeld) % plug->buffer_size);
}

snd_pcm_sframes_t transfer(snd_pcm_ioplug_t*, const snd_pcm_channel_area_t*, snd_pcm_uframes_t,
                           snd_pcm_uframes_t frames) {
  if (most != 0 && written + frames > most) return -ENODEV;
  written += frames;
  return static_cast<snd_pcm_sframes_t>(frames);
}

int close(snd_pcm_ioplug_t* plug) {
  return ::close(plug->poll_fd);
}

}  // namespace

extern "C" {
__attribute__((visibility("default"))) SND_PCM_PLUGIN_DEFINE_FUNC(lostcard) {
  static snd_pcm_ioplug_callback_t callback;
  callback.start = nothing;
  callback.stop = nothing;
  callback.pointer = pointer;
  callback.transfer = transfer;
  callback.close = close;
  const char* frames = std::getenv("TRELVAN_CARD_FRAMES");
  most = frames == nullptr ? 0 : std::strtoul(frames, nullptr, 10);
  (void)root;
  (void)conf;
  card.version = SND_PCM_IOPLUG_VERSION;
  card.name = "A card that is lost";
  card.callback = &callback;
  card.poll_fd = open("/dev/null", O_WRONLY | O_CLOEXEC);  // always ready
  const int error = snd_pcm_ioplug_create(&card, name, stream, mode);
  if (error >= 0) *pcmp = card.pcm;
  return error;
}
__attribute__((visibility("default"))) SND_PCM_PLUGIN_SYMBOL(lostcard);
}
