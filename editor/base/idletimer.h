// A repeating timer of the system's that calls an editor's idle.
#pragma once

class AEffGUIEditor;

// Calls editor->idle() every intervalMs milliseconds from the thread's run loop until it is destroyed, from inside the
// idle too. editor: not owned; null ticks without effect. User-interface thread. The window of this effect lives on the
// host's idle calls and starts none.
void* createTimer(AEffGUIEditor* editor, int intervalMs);
void destroyTimer(void* timer);  // null: nothing
