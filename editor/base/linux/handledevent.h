// The X server's time of the event that is handled.
#pragma once

#include <cstdint>

// Alive while the event is. A host that idles seldom hands over late what happened long before, and
// several events at once: how far they are apart is in their own times alone. On the thread of the
// windows.
class HandledEvent {
 public:
  explicit HandledEvent(std::uint32_t serverTime);  // ms, wrapping after 49.7 days
  ~HandledEvent();
  HandledEvent(const HandledEvent&) = delete;
  HandledEvent& operator=(const HandledEvent&) = delete;
};
