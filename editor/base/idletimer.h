// A repeating timer of the system's that calls an editor's idle.
#pragma once

class AEffGUIEditor;

// Calls editor->idle() every intervalMs milliseconds (above 0), from the run loop of the thread
// that made it, until it is destroyed, from inside the idle too. It never calls on another thread:
// where none runs that loop there are no ticks. editor: not owned; null ticks without effect.
// User-interface thread. The window of this effect lives on the host's idle calls and starts none;
// what stands in where a host idles nothing is an IdleWatch.
void* createTimer(AEffGUIEditor* editor, int intervalMs);
void destroyTimer(void* timer);  // null: nothing
