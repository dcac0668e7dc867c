// Marks the sequence of requests at both ends and discards what lies between.
#include "editor/base/linux/forgottenreplies.h"

ForgottenReplies::ForgottenReplies(xcb_connection_t* link) : connection(link) {
  if (connection != nullptr) first = xcb_no_operation(connection).sequence;
}

ForgottenReplies::~ForgottenReplies() {
  if (connection == nullptr) return;
  const unsigned last = xcb_no_operation(connection).sequence;
  // its numbers are all 0, and nothing waits in it
  if (xcb_connection_has_error(connection) != 0) return;
  // The numbers wrap.
  for (unsigned request = first + 1; request != last; ++request)
    xcb_discard_reply(connection, request);
}
