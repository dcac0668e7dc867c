// The idle timer on GLib's main loop, which the desktop's toolkits and so most hosts run.
#include "editor/base/idletimer.h"

#include <glib.h>

#include <algorithm>
#include <memory>
#include <thread>

#include "editor/base/aeffguieditor.h"

namespace {

struct Listener {
  AEffGUIEditor* editor;  // not owned
  std::thread::id maker;
};

// Where the maker's thread has no loop of its own and another one runs the process's, the ticks
// come on that one, which has no business with an editor.
gboolean tick(gpointer data) noexcept {
  const auto* listener = static_cast<const Listener*>(data);
  if (listener->editor == nullptr || std::this_thread::get_id() != listener->maker)
    return G_SOURCE_CONTINUE;
  try {
    listener->editor->idle();
  } catch (...) {  // it has nowhere to go: what called this is C
  }
  return G_SOURCE_CONTINUE;
}

}  // namespace

// The source ends its listener when it is destroyed, or after the tick in which it is.
void* createTimer(AEffGUIEditor* editor, int intervalMs) {
  auto listener = std::make_unique<Listener>(Listener{editor, std::this_thread::get_id()});
  GSource* timer = g_timeout_source_new(static_cast<guint>(std::max(intervalMs, 1)));
  g_source_set_callback(timer, tick, listener.release(),
                        [](gpointer data) { delete static_cast<Listener*>(data); });
  g_source_attach(timer, g_main_context_get_thread_default());  // null: the process's own
  return timer;
}

void destroyTimer(void* timer) {
  if (timer == nullptr) return;
  g_source_destroy(static_cast<GSource*>(timer));
  g_source_unref(static_cast<GSource*>(timer));
}
