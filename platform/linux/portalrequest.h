// A request to the desktop portal, which shows dialogs for programs that cannot show them
// themselves, as those in a sandbox.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

// One at a time, over a connection to the session bus that lives as long as the request. Nothing
// waits: what has arrived is looked at by poll, on a context that nobody else's sources are on.
// What is written and read goes over a thread of the library's. One thread at a time.
class PortalRequest {
 public:
  enum class State {
    none,
    running,
    done,         // results() is what the portal has sent
    cancelled,    // by the user
    unavailable,  // no bus, no portal, or not this part of it
  };

  PortalRequest();
  ~PortalRequest();  // ends it
  PortalRequest(const PortalRequest&) = delete;
  PortalRequest& operator=(const PortalRequest&) = delete;

  // Part of the name under which the portal answers; the options have it as "handle_token".
  static std::string newToken();

  // Calls the portal's method. arguments: floating, taken over. Ends the one before.
  void start(const char* interface, const char* method, const std::string& token,
             GVariant* arguments);
  State poll();
  // The dictionary of the response, once done. The request keeps it.
  GVariant* results() const;
  // Closes the portal's dialog.
  void cancel() noexcept;

 private:
  struct Talk;
  std::unique_ptr<Talk> talk;
};
