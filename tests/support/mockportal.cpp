// The bus as a program of the system's, the portal on the same library as the code under test.
#include "mockportal.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr char kName[] = "org.freedesktop.portal.Desktop";
constexpr char kInterfaces[] = R"(<node>
  <interface name="org.freedesktop.portal.FileChooser">
    <method name="OpenFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
      <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
    <method name="SaveFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
      <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
  </interface>
  <interface name="org.freedesktop.portal.Request"><method name="Close"/></interface>
</node>)";
constexpr char kConfiguration[] = R"(<busconfig><type>session</type>
  <listen>unix:tmpdir=FOLDER</listen><auth>EXTERNAL</auth>
  <policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
  <allow own="*"/></policy></busconfig>)";

std::string textOf(GVariant* options, const char* key) {
  const char* text = "";
  g_variant_lookup(options, key, "&s", &text);
  return text;
}

}  // namespace

PrivateBus::PrivateBus() {
  std::string configuration = kConfiguration;
  configuration.replace(configuration.find("FOLDER"), 6, folder.path);
  writeFile(folder / "bus.conf", configuration);
  const std::string option = "--config-file=" + (folder / "bus.conf");
  int out[2] = {};
  if (pipe2(out, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  process = fork();
  if (process == 0) {
    dup2(out[1], 1);
    dup2(open("/dev/null", O_WRONLY), 2);
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // of a test that breaks off nothing stays
    execl("/usr/bin/dbus-daemon", "dbus-daemon", "--nofork", "--nopidfile", "--print-address=1",
          option.c_str(), nullptr);
    _exit(127);
  }
  close(out[1]);
  for (char letter = 0; read(out[0], &letter, 1) == 1 && letter != '\n';) where += letter;
  close(out[0]);
  if (where.empty()) throw std::runtime_error("the bus did not start");
}

void PrivateBus::end() {
  if (process <= 0) return;
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
  process = 0;
}

void PrivateBus::freeze(bool stopped) const {
  kill(process, stopped ? SIGSTOP : SIGCONT);
}

MockPortal::MockPortal(const PrivateBus& bus)
    : context(g_main_context_new()),
      description(g_dbus_node_info_new_for_xml(kInterfaces, nullptr)) {
  constexpr auto kClient =
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  static const GDBusInterfaceVTable table = {called, nullptr, nullptr, {}};
  g_main_context_push_thread_default(context);
  link = g_dbus_connection_new_for_address_sync(bus.address().c_str(), kClient, nullptr, nullptr,
                                                nullptr);
  if (link == nullptr) throw std::runtime_error("no connection to the bus");
  g_dbus_connection_register_object(link, "/org/freedesktop/portal/desktop",
                                    description->interfaces[0], &table, this, nullptr, nullptr);
  g_main_context_pop_thread_default(context);
  GVariant* owned = g_dbus_connection_call_sync(
      link, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
      g_variant_new("(su)", kName, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
  if (owned == nullptr) throw std::runtime_error("the portal's name is not to be had");
  g_variant_unref(owned);
}

MockPortal::~MockPortal() {
  end();
  g_dbus_node_info_unref(description);
  g_main_context_unref(context);
}

void MockPortal::end() {
  if (link == nullptr) return;
  g_dbus_connection_close_sync(link, nullptr, nullptr);
  g_clear_object(&link);
  work();
}

void MockPortal::work() {
  while (g_main_context_iteration(context, FALSE) != FALSE) {
  }
}

void MockPortal::respond(unsigned code, const std::vector<std::string>& uris) {
  GVariantBuilder list;
  g_variant_builder_init(&list, G_VARIANT_TYPE_STRING_ARRAY);
  for (const std::string& uri : uris) g_variant_builder_add(&list, "s", uri.c_str());
  GVariantBuilder results;
  g_variant_builder_init(&results, G_VARIANT_TYPE_VARDICT);
  g_variant_builder_add(&results, "{sv}", "uris", g_variant_builder_end(&list));
  g_dbus_connection_emit_signal(link, calls.back().sender.c_str(), handle.c_str(),
                                "org.freedesktop.portal.Request", "Response",
                                g_variant_new("(ua{sv})", code, &results), nullptr);
  g_dbus_connection_flush_sync(link, nullptr, nullptr);
}

void MockPortal::called(GDBusConnection* /*link*/, const char* sender, const char* /*path*/,
                        const char* interface, const char* method, GVariant* arguments,
                        GDBusMethodInvocation* invocation, void* data) {
  auto* self = static_cast<MockPortal*>(data);
  if (std::string(interface) != "org.freedesktop.portal.Request")
    return self->choose(sender, method, arguments, invocation);
  ++self->closed;
  g_dbus_method_invocation_return_value(invocation, nullptr);
}

void MockPortal::choose(const char* sender, const char* method, GVariant* arguments,
                        GDBusMethodInvocation* invocation) {
  Call call;
  call.sender = sender;
  call.method = method;
  const char *parent = nullptr, *title = nullptr;
  GVariant* options = nullptr;
  g_variant_get(arguments, "(&s&s@a{sv})", &parent, &title, &options);
  call.parent = parent;
  call.title = title;
  call.token = textOf(options, "handle_token");
  call.name = textOf(options, "current_name");
  const char* folder = nullptr;
  call.hasFolder = g_variant_lookup(options, "current_folder", "^&ay", &folder) != FALSE;
  if (call.hasFolder) call.folder = folder;
  call.hasName = !call.name.empty();
  GVariant* filters = g_variant_lookup_value(options, "filters", G_VARIANT_TYPE("a(sa(us))"));
  if (filters != nullptr) {
    const char *filter = nullptr, *pattern = nullptr;
    GVariantIter* patterns = nullptr;
    g_variant_get_child(filters, 0, "(&sa(us))", &filter, &patterns);
    call.filter = filter;
    unsigned kind = 1;
    while (g_variant_iter_next(patterns, "(u&s)", &kind, &pattern) != FALSE)
      call.patterns.push_back(std::to_string(kind) + " " + pattern);
    g_variant_iter_free(patterns);
    g_variant_unref(filters);
  }
  g_variant_unref(options);
  calls.push_back(call);
  if (answers == Answers::withAnError) {
    return g_dbus_method_invocation_return_dbus_error(invocation,
                                                      "org.freedesktop.DBus.Error.Failed", "no");
  }
  std::string name = call.sender.substr(1);
  std::replace(name.begin(), name.end(), '.', '_');
  const std::string token = answers == Answers::underAnotherName ? "t1" : call.token;
  handle = "/org/freedesktop/portal/desktop/request/" + name + "/" + token;
  static const GDBusInterfaceVTable table = {MockPortal::called, nullptr, nullptr, {}};
  g_main_context_push_thread_default(context);
  g_dbus_connection_register_object(link, handle.c_str(), description->interfaces[1], &table, this,
                                    nullptr, nullptr);
  g_main_context_pop_thread_default(context);
  if (answers == Answers::beforeReturning) respond(0, prepared);
  g_dbus_method_invocation_return_value(invocation, g_variant_new("(o)", handle.c_str()));
}
