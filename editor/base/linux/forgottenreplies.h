// Throws away the replies of the X server that the toolkit asks for and never takes.
#pragma once

#include <xcb/xcb.h>

// The toolkit sends a question with each movement of the pointer and leaves the reply in the
// connection's memory, where it stays as long as the connection, some 150 bytes a movement. Nobody
// waits across the event handling for a reply that was asked for in it, so what is left of them
// when it is over goes. User-interface thread.
class ForgottenReplies {
 public:
  // null: there is none yet, and nothing to do
  explicit ForgottenReplies(xcb_connection_t* connection);
  ~ForgottenReplies();
  ForgottenReplies(const ForgottenReplies&) = delete;
  ForgottenReplies& operator=(const ForgottenReplies&) = delete;

 private:
  xcb_connection_t* connection;
  unsigned first = 0;  // sequence number of a request before all that are looked at
};
