// Plays a sound file round and round through an effect.
#include "host/play/player.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kPiece = 1024;  // frames handed on at once: between two pieces it can be stopped
constexpr std::chrono::seconds kCardStalls(2);  // without a frame taken: a card takes ten a second
// A card has a clock of its own, a few millionths beside ours. What takes sound as fast as it
// comes, a file for instance, is held back.
constexpr double kFastestCard = 1.02;

}  // namespace

Player::Player(Effect& started, HostCallback& answering, Loop& source,
               std::unique_ptr<SoundCard> opened, const PlayerOptions& options)
    : callback(answering),
      loop(source),
      card(std::move(opened)),
      gain(options.gain),
      runner(BlockRunner::make(started, options.blockSize, options.doublePrecision)),
      left(static_cast<std::size_t>(options.blockSize)),
      right(left.size()),
      out(2 * left.size()),
      audible(card != nullptr),
      pace(audible ? kFastestCard * source.sampleRate() : source.sampleRate(),
           audible ? Pace::Beginning::behind : Pace::Beginning::now),
      thread([this] { run(); }) {}

Player::~Player() {
  stopping = true;
  thread.join();
}

void Player::check() {
  if (failed) std::rethrow_exception(failure);
}

void Player::run() {
  callback.processOnThisThread();
  try {
    play();
  } catch (...) {
    failure = std::current_exception();
    failed = true;
  }
}

void Player::play() {
  const int frames = static_cast<int>(left.size());
  while (!stopping) {
    loop.read(left.data(), right.data(), frames);
    runner->run(left.data(), right.data(), left.data(), right.data(), frames);
    interleave(frames);
    deliver(frames);
  }
}

// What is no number could be heard as anything.
void Player::interleave(int frames) {
  const auto heard = [this](double sample) {
    return std::isfinite(sample) ? static_cast<float>(sample * gain) : 0.0F;
  };
  for (std::size_t frame = 0; frame < static_cast<std::size_t>(frames); ++frame) {
    out[2 * frame] = heard(left[frame]);
    out[2 * frame + 1] = heard(right[frame]);
  }
}

void Player::deliver(int frames) {
  lastTaken = Clock::now();
  for (int done = 0; done < frames && !stopping;) {
    const int piece = std::min(frames - done, kPiece);
    const int taken =
        audible ? offer(out.data() + 2 * static_cast<std::size_t>(done), piece) : piece;
    done += taken;
    paced += taken;
    while (!stopping && !pace.reached(paced)) continue;
  }
}

// Returns how many frames were taken. The card is closed with the player: not here, where it could
// take long.
int Player::offer(const float* frames, int count) {
  const int taken = card->write(frames, count);
  const auto now = Clock::now();
  if (taken > 0) lastTaken = now;
  if (taken >= 0 && now - lastTaken < kCardStalls) return taken;
  audible = false;
  pace = Pace(loop.sampleRate());
  paced = 0;
  cardLost = true;
  return 0;
}
