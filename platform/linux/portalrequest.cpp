// Connects to the session bus, calls the portal, and hears its response.
#include "platform/linux/portalrequest.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <new>
#include <utility>

#include "platform/linux/sessionbus.h"

namespace {

constexpr char kPortal[] = "org.freedesktop.portal.Desktop";
constexpr char kPortalPath[] = "/org/freedesktop/portal/desktop";
constexpr char kRequest[] = "org.freedesktop.portal.Request";

// What is begun meanwhile reports to this context.
class DefaultContext {
 public:
  explicit DefaultContext(GMainContext* pushed) : context(pushed) {
    g_main_context_push_thread_default(context);
  }
  ~DefaultContext() { g_main_context_pop_thread_default(context); }
  DefaultContext(const DefaultContext&) = delete;
  DefaultContext& operator=(const DefaultContext&) = delete;

 private:
  GMainContext* context;
};

}  // namespace

// What the library's callbacks know. It outlives the request where one of them is still to come.
struct PortalRequest::Talk {
  Talk(const char* calledInterface, const char* calledMethod, std::string usedToken,
       GVariant* given)
      : interface(calledInterface),
        method(calledMethod),
        token(std::move(usedToken)),
        arguments(g_variant_ref(given)),
        context(g_main_context_new()),
        ending(g_cancellable_new()) {}
  ~Talk() {
    unsubscribe();
    if (results != nullptr) g_variant_unref(results);
    g_variant_unref(arguments);
    g_clear_object(&bus);
    g_object_unref(ending);
    while (g_main_context_iteration(context, FALSE) != FALSE) {
    }
    g_main_context_unref(context);
  }
  Talk(const Talk&) = delete;
  Talk& operator=(const Talk&) = delete;

  void connect(const std::string& address) {
    const DefaultContext ours(context);
    constexpr auto kClient =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    ++pending;
    g_dbus_connection_new_for_address(address.c_str(), kClient, nullptr, ending, connected, this);
  }

  // Runs `work` in a callback of the library's, through which nothing may be thrown.
  template <typename Work>
  void contained(const Work& work) noexcept {
    try {
      work();
    } catch (const std::bad_alloc&) {
      state = State::unavailable;
    }
  }

  static void connected(GObject* /*source*/, GAsyncResult* result, gpointer data) {
    auto* self = static_cast<Talk*>(data);
    --self->pending;
    self->bus = g_dbus_connection_new_for_address_finish(result, nullptr);
    if (self->bus == nullptr) {
      self->state = State::unavailable;
    } else if (g_cancellable_is_cancelled(self->ending) == FALSE) {
      self->contained([self] { self->call(); });
    }
  }

  // The response may come before the call returns: it is listened for under the name that it will
  // have.
  void call() {
    std::string sender = g_dbus_connection_get_unique_name(bus) + 1;  // after a colon
    std::replace(sender.begin(), sender.end(), '.', '_');
    listen(std::string(kPortalPath) + "/request/" + sender + "/" + token);
    portalWatch = g_dbus_connection_signal_subscribe(
        bus, "org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
        "/org/freedesktop/DBus", kPortal, G_DBUS_SIGNAL_FLAGS_NONE, ownerChanged, this, nullptr);
    constexpr int kUsualTime = -1;  // 25 s, which is for the call: the dialog may stand for hours
    ++pending;
    g_dbus_connection_call(bus, kPortal, kPortalPath, interface, method, arguments,
                           G_VARIANT_TYPE("(o)"), G_DBUS_CALL_FLAGS_NONE, kUsualTime, ending,
                           called, this);
  }

  void listen(const std::string& path) {
    if (path == handle) return;
    handle = path;
    if (response != 0) g_dbus_connection_signal_unsubscribe(bus, response);
    response = g_dbus_connection_signal_subscribe(bus, kPortal, kRequest, "Response",
                                                  handle.c_str(), nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
                                                  responded, this, nullptr);
  }

  void unsubscribe() {
    for (guint* subscription : {&response, &portalWatch}) {
      if (*subscription != 0) g_dbus_connection_signal_unsubscribe(bus, *subscription);
      *subscription = 0;
    }
  }

  static void called(GObject* source, GAsyncResult* result, gpointer data) {
    auto* self = static_cast<Talk*>(data);
    --self->pending;
    GVariant* reply = g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, nullptr);
    if (reply == nullptr) {
      if (self->state == State::running) self->state = State::unavailable;
      return;
    }
    // Portals of the first years choose a name themselves.
    const char* path = nullptr;
    g_variant_get(reply, "(&o)", &path);
    if (self->state == State::running) self->contained([&] { self->listen(path); });
    g_variant_unref(reply);
  }

  static void responded(GDBusConnection* /*bus*/, const gchar* /*sender*/, const gchar* /*path*/,
                        const gchar* /*interface*/, const gchar* /*signal*/, GVariant* parameters,
                        gpointer data) {
    auto* self = static_cast<Talk*>(data);
    if (self->state != State::running) return;
    constexpr guint32 kSuccess = 0, kByTheUser = 1;  // 2: it failed
    guint32 code = 2;
    if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(ua{sv})")) != FALSE)
      g_variant_get(parameters, "(u@a{sv})", &code, &self->results);
    self->state = code == kSuccess     ? State::done
                  : code == kByTheUser ? State::cancelled
                                       : State::unavailable;
  }

  // A portal that ends takes its dialog along and says nothing of it.
  static void ownerChanged(GDBusConnection* /*bus*/, const gchar* /*sender*/, const gchar* /*path*/,
                           const gchar* /*interface*/, const gchar* /*signal*/,
                           GVariant* parameters, gpointer data) {
    auto* self = static_cast<Talk*>(data);
    const char* owner = "";
    if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(sss)")) != FALSE)
      g_variant_get(parameters, "(&s&s&s)", nullptr, nullptr, &owner);
    if (*owner == '\0' && self->state == State::running) self->state = State::unavailable;
  }

  void look() {
    const DefaultContext ours(context);
    constexpr int kMost = 100;  // steps a pass, of which a request has about ten in all
    for (int step = 0; step < kMost && g_main_context_iteration(context, FALSE) != FALSE; ++step) {
    }
    const bool isMute = bus == nullptr ? std::chrono::steady_clock::now() > giveUp
                                       : g_dbus_connection_is_closed(bus) != FALSE;
    if (state == State::running && isMute) state = State::unavailable;
  }

  // The few bytes go into the socket at once, whatever the bus does with them.
  void closeDialog() {
    if (state != State::running || response == 0) return;
    g_dbus_connection_call(bus, kPortal, handle.c_str(), kRequest, "Close", nullptr, nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr, nullptr);
    g_dbus_connection_flush_sync(bus, nullptr, nullptr);
  }

  // Whether all callbacks have come, which a cancelled call's does in no time.
  bool settles() {
    const DefaultContext ours(context);
    constexpr int kLongest = 200;  // ms
    for (int waited = 0; pending > 0 && waited < kLongest;) {
      if (g_main_context_iteration(context, FALSE) != FALSE) continue;
      usleep(1000);
      ++waited;
    }
    return pending == 0;
  }

  const char* interface;
  const char* method;
  std::string token;
  std::string handle;  // the request's object, while it is listened to
  GVariant* arguments;
  GVariant* results = nullptr;
  GMainContext* context;
  GCancellable* ending;
  GDBusConnection* bus = nullptr;
  guint response = 0, portalWatch = 0;  // subscriptions; 0: none
  int pending = 0;                      // callbacks that are still to come
  // of a bus that takes the connection and says nothing
  std::chrono::steady_clock::time_point giveUp =
      std::chrono::steady_clock::now() + std::chrono::seconds(10);
  State state = State::running;
};

PortalRequest::PortalRequest() = default;

PortalRequest::~PortalRequest() {
  cancel();
}

std::string PortalRequest::newToken() {
  return "trelvan" + std::to_string(getpid()) + "_" + std::to_string(g_random_int());
}

void PortalRequest::start(const char* interface, const char* method, const std::string& token,
                          GVariant* arguments) {
  const std::unique_ptr<GVariant, decltype(&g_variant_unref)> held(g_variant_ref_sink(arguments),
                                                                   &g_variant_unref);
  auto starting = std::make_unique<Talk>(interface, method, token, held.get());
  const std::string address = sessionBusAddress();
  cancel();
  talk = std::move(starting);
  if (address.empty()) {
    talk->state = State::unavailable;
  } else {
    talk->connect(address);
  }
}

PortalRequest::State PortalRequest::poll() {
  if (!talk) return State::none;
  talk->look();
  return talk->state;
}

GVariant* PortalRequest::results() const {
  return talk ? talk->results : nullptr;
}

void PortalRequest::cancel() noexcept {
  if (!talk) return;
  talk->closeDialog();
  g_cancellable_cancel(talk->ending);
  talk->unsubscribe();
  // one that does not come in time finds what it knows, which then stays
  if (!talk->settles()) static_cast<void>(talk.release());
  talk.reset();
}
