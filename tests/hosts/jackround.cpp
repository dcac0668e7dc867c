// Usage: jackround LEFT-IN RIGHT-IN LEFT-OUT RIGHT-OUT <SOUND >SOUND   (ports of a host)
// A JACK client that plays stereo floats into a host's inputs and writes what comes out of it, a
// second longer than what went in. Faster than real time, and so without a frame lost on a machine
// that is busy.
#include <jack/jack.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

struct Round {
  jack_port_t* outs[2];  // to the host
  jack_port_t* ins[2];   // from it
  std::vector<float> played;
  std::vector<float> heard;  // of its whole size from the start
  std::size_t frame = 0;
  std::atomic<bool> isPlaying = false;
  std::atomic<bool> isDone = false;
};

int process(jack_nframes_t frames, void* argument) {
  Round& round = *static_cast<Round*>(argument);
  for (int side = 0; side < 2; ++side) {
    auto* out = static_cast<float*>(jack_port_get_buffer(round.outs[side], frames));
    const auto* in = static_cast<float*>(jack_port_get_buffer(round.ins[side], frames));
    for (jack_nframes_t i = 0; i < frames; ++i) {
      const std::size_t at = 2 * (round.frame + i) + static_cast<std::size_t>(side);
      out[i] = round.isPlaying && at < round.played.size() ? round.played[at] : 0.0F;
      if (round.isPlaying && at < round.heard.size()) round.heard[at] = in[i];
    }
  }
  if (round.isPlaying) round.frame += frames;
  if (2 * round.frame >= round.heard.size()) round.isDone = true;
  return 0;
}

int failed(const char* what) {
  std::fprintf(stderr, "jackround: %s\n", what);
  return 1;
}

}  // namespace

int main(int count, char** ports) {
  if (count != 5) return failed("usage: jackround LEFT-IN RIGHT-IN LEFT-OUT RIGHT-OUT");
  Round round;
  for (float sample; std::fread(&sample, sizeof sample, 1, stdin) == 1;)
    round.played.push_back(sample);
  jack_client_t* client = jack_client_open("round", JackNoStartServer, nullptr);
  if (client == nullptr) return failed("no sound server");
  round.heard.resize(round.played.size() + 2 * jack_get_sample_rate(client));
  const char* names[] = {"left", "right", "back_left", "back_right"};
  for (int side = 0; side < 2; ++side) {
    round.outs[side] =
        jack_port_register(client, names[side], JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput, 0);
    round.ins[side] =
        jack_port_register(client, names[2 + side], JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput, 0);
  }
  jack_set_process_callback(client, process, &round);
  if (jack_activate(client) != 0) return failed("it cannot be started");
  for (int side = 0; side < 2; ++side) {
    if (jack_connect(client, jack_port_name(round.outs[side]), ports[1 + side]) != 0 ||
        jack_connect(client, ports[3 + side], jack_port_name(round.ins[side])) != 0)
      return failed("the host has no such ports");
  }
  if (jack_set_freewheel(client, 1) != 0) return failed("the server knows real time only");
  round.isPlaying = true;
  while (!round.isDone) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  jack_set_freewheel(client, 0);
  jack_client_close(client);
  return std::fwrite(round.heard.data(), sizeof(float), round.heard.size(), stdout) ==
                 round.heard.size()
             ? 0
             : failed("the sound cannot be written");
}
