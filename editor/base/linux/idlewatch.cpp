// Looks after the window from GLib's main loop.
#include "editor/base/idlewatch.h"

#include <glib.h>

#include <atomic>
#include <cstdint>
#include <thread>

#include "editor/base/aeffguieditor.h"
#include "editor/base/linux/openfiles.h"
#include "editor/base/steadytime.h"

namespace {

// ms
constexpr std::uint64_t kLongest = 100;  // without the host, before the window gets its own passes
constexpr std::uint64_t kInterval = 30;  // from one of these to the next
constexpr std::uint64_t kSeldom = 1000;  // between looks where the window is another thread's

void wakeAfter(GSource* source, std::uint64_t milliseconds) {
  constexpr gint64 kMicroseconds = 1000;  // of a millisecond
  g_source_set_ready_time(
      source, g_get_monotonic_time() + static_cast<gint64>(milliseconds) * kMicroseconds);
}

gboolean dispatch(GSource* /*source*/, GSourceFunc callback, gpointer data) {
  return callback(data);
}

}  // namespace

// The loop keeps it as well: a tick may end the watch, and one may be on its way on another thread,
// which reads nothing here but what is constant or atomic.
struct IdleWatch::System {
  explicit System(AEffGUIEditor* watched) : editor(watched) {}

  static gboolean wake(gpointer data) noexcept {
    const std::shared_ptr<System> self = *static_cast<std::shared_ptr<System>*>(data);
    wakeAfter(self->source, self->look());
    return G_SOURCE_CONTINUE;
  }
  static void forget(gpointer data) { delete static_cast<std::shared_ptr<System>*>(data); }

  bool isOurs() const {
    const std::thread::id here = std::this_thread::get_id();
    return here == maker && here == idler.load(std::memory_order_relaxed);
  }

  // Returns after how many milliseconds to look again. A host that idles by itself costs one look
  // in the longest time that it may leave out.
  std::uint64_t look() {
    if (!isOurs()) return kSeldom;
    const std::uint64_t since = steadyMilliseconds() - last.load(std::memory_order_relaxed);
    if (since < kLongest) return kLongest - since;
    tick();  // the loop calls no source within its own call
    return kInterval;
  }

  void tick() {
    ticking = true;
    try {
      editor->idle();
    } catch (...) {  // it has nowhere to go: what called this is C
    }
    ticking = false;
  }

  AEffGUIEditor* editor;
  const std::thread::id maker = std::this_thread::get_id();
  std::atomic<std::thread::id> idler{maker};
  std::atomic<std::uint64_t> last{steadyMilliseconds()};  // ms: an idle call of the host's
  GSource* source = nullptr;
  bool ticking = false;  // the maker's thread's
};

IdleWatch::IdleWatch(AEffGUIEditor* editor) : system(std::make_shared<System>(editor)) {
  static GSourceFuncs kinds = {nullptr, nullptr, dispatch, nullptr, nullptr, nullptr};
  auto kept = std::make_unique<std::shared_ptr<System>>(system);
  system->source = g_source_new(&kinds, sizeof(GSource));
  g_source_set_callback(system->source, System::wake, kept.release(), System::forget);
  wakeAfter(system->source, kLongest);
  // The process's own loop takes a file where it is the first to be asked for, and ends the process
  // without one. No window opens then anyway.
  if (!areFilesLeft()) return;
  g_source_attach(system->source, g_main_context_get_thread_default());  // null: the process's own
}

IdleWatch::~IdleWatch() {
  g_source_destroy(system->source);
  g_source_unref(system->source);
}

void IdleWatch::idled() {
  if (system->isOurs() && system->ticking) return;
  system->idler.store(std::this_thread::get_id(), std::memory_order_relaxed);
  system->last.store(steadyMilliseconds(), std::memory_order_relaxed);
}
