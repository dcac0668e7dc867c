// A session bus of the test's own, and a desktop portal on it that does what the test says.
#pragma once

#include <gio/gio.h>

#include <string>
#include <vector>

#include "temporaryfolder.h"

// Runs until its end; reachable by address() only.
class PrivateBus {
 public:
  PrivateBus();  // throws where it does not start
  ~PrivateBus() { end(); }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  const std::string& address() const { return where; }
  void end();
  void freeze(bool stopped) const;  // it takes connections and says nothing

 private:
  TemporaryFolder folder;
  std::string where;
  pid_t process = 0;
};

// org.freedesktop.portal.Desktop with its file chooser. Works while the test gives it time.
class MockPortal {
 public:
  struct Call {
    std::string sender, method, parent, title, token, folder, name;
    bool hasFolder = false, hasName = false;
    std::string filter;  // its name
    std::vector<std::string> patterns;
  };

  explicit MockPortal(const PrivateBus& bus);
  ~MockPortal();
  MockPortal(const MockPortal&) = delete;
  MockPortal& operator=(const MockPortal&) = delete;

  void work();  // what has arrived
  // To the last call.
  void respond(unsigned code, const std::vector<std::string>& uris);
  void end();  // leaves the bus

  // How it answers calls from now on.
  enum class Answers { itself, beforeReturning, underAnotherName, withAnError };
  Answers answers = Answers::itself;
  std::vector<std::string> prepared;  // uris for beforeReturning

  std::vector<Call> calls;
  int closed = 0;  // dialogs that were closed by who asked for them

 private:
  static void called(GDBusConnection* link, const char* sender, const char* path,
                     const char* interface, const char* method, GVariant* arguments,
                     GDBusMethodInvocation* invocation, void* self);
  void choose(const char* sender, const char* method, GVariant* arguments,
              GDBusMethodInvocation* invocation);

  GMainContext* context;
  GDBusConnection* link = nullptr;
  GDBusNodeInfo* description;
  std::string handle;  // of the last call
};
