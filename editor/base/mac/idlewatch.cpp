// The application's run loop brings the window its events and draws it. The meter and what
// automation has moved live on the host's idle calls, as this effect's window always has.
#include "editor/base/idlewatch.h"

struct IdleWatch::System {};

IdleWatch::IdleWatch(AEffGUIEditor* /*editor*/) {}

IdleWatch::~IdleWatch() = default;

void IdleWatch::idled() {}
