// Per-user preferences: strings and byte values under keys, shared by all instances of the plug-in
// in all hosts.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <vector>

// An object shows the store as it stood at its first question, the only time that it reads until
// readAgain(); so several questions that belong together cost one reading. Changes are seen by the
// object's own questions at once and by everybody else, all of them in one step, after
// synchronise(). Until that has written them they wait in the object, and go with it. Where nothing
// can be kept (no home, no permission, a full disk) every other key is missing and synchronise()
// returns false. One thread an object; any number of objects on any threads and in any processes.
class PreferenceStore {
 public:
  // Hosts wait as long on their user-interface thread; another writer needs some milliseconds.
  static constexpr std::chrono::milliseconds kLongestWait{50};

  // applicationId: a reverse-domain name in three parts, "com.maker.product". Opens
  // and reads nothing.
  explicit PreferenceStore(const char* applicationId);
  ~PreferenceStore();
  PreferenceStore(const PreferenceStore&) = delete;
  PreferenceStore& operator=(const PreferenceStore&) = delete;

  // key: letters and digits. False, and the output unchanged, where the key is missing, holds the
  // other type, or the string with its terminator does not fit into `size` bytes.
  bool getString(const char* key, char* buffer, std::size_t size) const;
  bool getBytes(const char* key, std::vector<unsigned char>& out) const;

  // Values are at most 128 KiB. A string is bytes up to its zero, kept one for one.
  void setString(const char* key, const char* value);
  void setBytes(const char* key, const void* bytes, std::size_t size);
  void remove(const char* key);

  // The next question reads the store as it stands then. The changes stay.
  void readAgain();

  // Puts the changes on disk before it returns; what others wrote meanwhile under other keys stays.
  // Writes nothing where nothing differs. longestWait: for another process that is writing. False:
  // nothing was written, and the changes wait for the next time. One whose key has got another
  // value by then is older than that one, and goes.
  bool synchronise(std::chrono::milliseconds longestWait = kLongestWait);
  bool hasChanges() const;  // that wait

 private:
  struct System;
  std::unique_ptr<System> system;
};
