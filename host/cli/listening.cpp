// The effect's window, and the sound file that is heard meanwhile.
#include "host/cli/listening.h"

#include <optional>

#include "host/base/interruption.h"
#include "host/play/player.h"
#include "host/play/soundcard.h"
#include "host/vst/editorwindow.h"

namespace {

std::unique_ptr<SoundCard> openCard(int sampleRate, Console& console) {
  std::string reason;
  auto card = SoundCard::open(sampleRate, reason);
  if (!card)
    console.warn("no sound card can be opened (" + reason + "): the file plays in silence");
  return card;
}

// The effect from its start to its stop. The player ends before it is stopped.
class Running {
 public:
  Running(Effect& started, bool doublePrecision) : effect(started) {
    effect.start(doublePrecision);
  }
  ~Running() { effect.stop(); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  Effect& effect;
};

}  // namespace

void showAndPlay(Effect& effect, HostCallback& callback, Loop* loop, const Arguments& arguments,
                 Console& console) {
  const auto goesOn = [] { return !OrderlyEnd::isAsked(); };
  if (loop == nullptr) return showEditor(effect, callback, goesOn);
  effect.checkTakes(loop->channels(), arguments.inputs.front());
  callback.setRealTime(true);
  const Running running(effect, arguments.asksDouble());
  effect.checkCanProcess(arguments.asksDouble());
  std::optional<Player> player;  // from the moment on that there is a window
  showEditor(effect, callback, [&] {
    if (!player) {
      player.emplace(effect, callback, *loop, openCard(loop->sampleRate(), console),
                     PlayerOptions{arguments.blockSize, arguments.asksDouble(), arguments.gain});
    }
    player->check();
    if (player->takeCardLost()) console.warn("the sound card is gone: the file plays in silence");
    return goesOn();
  });
}
