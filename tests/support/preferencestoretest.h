// What the tests of the preferences share: a store of their own, and a watch on its folder.
#pragma once

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/preferencestore.h"
#include "tests/support/ownprocess.h"
#include "tests/support/temporaryfolder.h"

class Preferences : public testing::Test {
 protected:
  static constexpr char kId[] = "com.maker.product";
  // Where many write at once, each has its turn in time.
  static constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(20);

  Preferences() { std::filesystem::create_directories(folder()); }

  std::string folder() const { return temporary / "maker"; }
  std::string file() const { return folder() + "/product.conf"; }

  static void store(const char* key, const std::string& value) {
    PreferenceStore preferences(kId);
    preferences.setBytes(key, value.data(), value.size());
    ASSERT_TRUE(preferences.synchronise(kPatience));
  }
  // "missing" where it is.
  static std::string stored(const std::string& key) {
    std::vector<unsigned char> value;
    return PreferenceStore(kId).getBytes(key.c_str(), value)
               ? std::string(value.begin(), value.end())
               : "missing";
  }

  TemporaryFolder temporary;
  ScopedVariable config{"XDG_CONFIG_HOME", temporary.path};
};

// Counts what happens to the files of a folder. Events of the same kind do not melt together here,
// because each opening is followed by reading and closing.
class FolderWatch {
 public:
  FolderWatch(const std::string& folder, std::uint32_t events)
      : queue(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    inotify_add_watch(queue, folder.c_str(), events | IN_ACCESS | IN_CLOSE);
    counted = events;
  }
  ~FolderWatch() { close(queue); }
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  // Events so far, since the last call, on the file of that name; "" for any.
  int count(const std::string& name) {
    int events = 0;
    alignas(inotify_event) char buffer[65536];
    ssize_t size = 0;
    while ((size = read(queue, buffer, sizeof buffer)) > 0) {
      for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
        const std::string about = event->len > 0 ? event->name : "";
        if ((event->mask & counted) != 0 && (name.empty() || about == name)) ++events;
        at += static_cast<ssize_t>(sizeof *event + event->len);
      }
    }
    return events;
  }

 private:
  int queue;
  std::uint32_t counted = 0;
};
