// Spells a request for a file as the portal takes it, and its response as a path.
#include "editor/base/linux/portalchoice.h"

#include <strings.h>

#include <cstdio>
#include <memory>
#include <vector>

#include "editor/base/linux/filechoice.h"
#include "platform/linux/environment.h"
#include "platform/validtext.h"

namespace {

using Text = std::unique_ptr<char, decltype(&g_free)>;

// Name and patterns, of which 0 says that they are patterns.
GVariant* filtersOf(const FileDialogRequest& request) {
  GVariantBuilder patterns;
  g_variant_builder_init(&patterns, G_VARIANT_TYPE("a(us)"));
  for (const std::string& pattern : filePatterns(request.extension))
    g_variant_builder_add(&patterns, "(us)", 0U, pattern.c_str());
  GVariantBuilder filters;
  g_variant_builder_init(&filters, G_VARIANT_TYPE("a(sa(us))"));
  g_variant_builder_add(&filters, "(sa(us))", request.typeName.c_str(), &patterns);
  return g_variant_builder_end(&filters);
}

// The bus takes no text that is not UTF-8; a folder is bytes with a zero at their end.
GVariant* argumentsOf(const FileDialogRequest& request, const std::string& token) {
  char parent[32] = "";  // a window of the X server by its number, or nobody's
  if (request.window != 0)
    std::snprintf(parent, sizeof parent, "x11:%lx", static_cast<unsigned long>(request.window));
  const std::string folder = dialogFolder(request);
  const std::string name = validText(request.proposedName);
  GVariantBuilder options;
  g_variant_builder_init(&options, G_VARIANT_TYPE_VARDICT);
  g_variant_builder_add(&options, "{sv}", "handle_token", g_variant_new_string(token.c_str()));
  g_variant_builder_add(&options, "{sv}", "modal", g_variant_new_boolean(TRUE));
  g_variant_builder_add(&options, "{sv}", "filters", filtersOf(request));
  g_variant_builder_add(&options, "{sv}", "current_folder",
                        g_variant_new_bytestring(folder.c_str()));
  if (request.save && !name.empty())
    g_variant_builder_add(&options, "{sv}", "current_name", g_variant_new_string(name.c_str()));
  return g_variant_new("(ssa{sv})", parent, request.title.c_str(), &options);
}

}  // namespace

void PortalChoice::choose(const FileDialogRequest& request) {
  const std::string token = PortalRequest::newToken();
  portal.start("org.freedesktop.portal.FileChooser", request.save ? "SaveFile" : "OpenFile", token,
               argumentsOf(request, token));
}

FileMeans::State PortalChoice::poll() {
  switch (portal.poll()) {
    case PortalRequest::State::running:
      return State::running;
    case PortalRequest::State::done:
      return State::accepted;
    case PortalRequest::State::cancelled:
      return State::declined;
    case PortalRequest::State::none:
    case PortalRequest::State::unavailable:
      break;
  }
  return State::unavailable;
}

// Its first file. The library takes no escaped slash and no escaped zero.
std::string PortalChoice::path() const {
  GVariant* results = portal.results();
  if (results == nullptr) return {};
  const std::unique_ptr<GVariant, void (*)(GVariant*)> uris(
      g_variant_lookup_value(results, "uris", G_VARIANT_TYPE_STRING_ARRAY),
      [](GVariant* list) { g_variant_unref(list); });
  if (!uris || g_variant_n_children(uris.get()) == 0) return {};
  const char* uri = nullptr;
  g_variant_get_child(uris.get(), 0, "&s", &uri);
  char* hostName = nullptr;
  const Text path(g_filename_from_uri(uri, &hostName, nullptr), &g_free);
  const Text host(hostName, &g_free);
  const bool isLocal = !host || *host == '\0' || strcasecmp(host.get(), "localhost") == 0;
  if (!path || !isLocal) return {};
  const std::string file = path.get();
  return file.back() != '/' ? file : std::string();
}

// The portal for documents shows what is let in below the user's folder for what runs.
bool PortalChoice::isOnlyFile() const {
  const std::string running = environmentVariable("XDG_RUNTIME_DIR");
  return !running.empty() && path().starts_with(running + "/doc/");
}
