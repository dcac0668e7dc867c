// The effect's window in a plain one.
#include "host/vst/editorwindow.h"

#include <chrono>
#include <optional>
#include <thread>

#include "host/base/failure.h"
#include "host/vst/plainwindow.h"

namespace {

constexpr auto kIdleInterval = std::chrono::milliseconds(20);  // 50 Hz, as the quicker hosts do
constexpr int kPassesBetweenSizes = 10;  // 200 ms until a size that nobody tells of is followed
constexpr HostCallback::Size kUnknownSize{320, 200};  // until the effect knows its own

// Pixels of the screen, however large the effect draws itself.
std::optional<HostCallback::Size> editorSize(Effect& effect) {
  ERect* rect = nullptr;
  effect.dispatch(effEditGetRect, 0, 0, &rect);
  if (rect == nullptr || rect->right <= rect->left || rect->bottom <= rect->top)
    return std::nullopt;
  return HostCallback::Size{rect->right - rect->left, rect->bottom - rect->top};
}

std::string titleOf(Effect& effect) {
  const std::string name = effect.text(effGetEffectName);
  return name.empty() ? effect.path().stem().string() : name;
}

// The effect's window while it is open in a plain one.
class OpenEditor {
 public:
  OpenEditor(Effect& shown, PlainWindow& into, std::optional<HostCallback::Size> sizeBefore)
      : effect(shown), window(into), size(sizeBefore) {
    if (effect.dispatch(effEditOpen, 0, 0, window.handle()) == 0)
      throw Failure(effect.plugin() + " did not open its window");
  }
  ~OpenEditor() { effect.dispatch(effEditClose); }
  OpenEditor(const OpenEditor&) = delete;
  OpenEditor& operator=(const OpenEditor&) = delete;

  // Some effects know their size only once they are open, and some change it without a word.
  void followSize() {
    const auto now = editorSize(effect);
    if (!now || now == size) return;
    size = now;
    window.resize(now->width, now->height);
  }

  void idle(HostCallback& callback) {
    effect.dispatch(effEditIdle);
    if (const auto asked = callback.takeWindowSize()) window.resize(asked->width, asked->height);
    if (++passes % kPassesBetweenSizes == 0) followSize();
  }

 private:
  Effect& effect;
  PlainWindow& window;
  std::optional<HostCallback::Size> size;  // as the effect names it, not what it asked for
  int passes = 0;
};

}  // namespace

void showEditor(Effect& effect, HostCallback& callback, const std::function<bool()>& goesOn) {
  if ((effect.record().flags & effFlagsHasEditor) == 0)
    throw Failure(effect.plugin() + " has no window");
  const auto before = editorSize(effect);
  const HostCallback::Size size = before.value_or(kUnknownSize);
  PlainWindow window(size.width, size.height, titleOf(effect));
  OpenEditor editor(effect, window, before);
  editor.followSize();
  while (goesOn() && window.wanted()) {
    editor.idle(callback);
    std::this_thread::sleep_for(kIdleInterval);
  }
}
