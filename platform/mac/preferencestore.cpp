// Preferences on macOS: the application preferences of Core Foundation, under the
// plug-in's own identifier.
#include "platform/preferencestore.h"

#include <cstdlib>
#include <map>
#include <mutex>
#include <string>
#include <utility>

#include "platform/mac/cfowned.h"

namespace {

// so that all changes of one synchronise() are seen together in this process
std::mutex storeMutex;

// In the system's 8-bit Roman encoding, which has a character for every byte: strings come back
// byte for byte.
CFOwned<CFStringRef> romanString(const char* text) {
  return CFOwned<CFStringRef>(
      CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingMacRoman));
}

}  // namespace

struct PreferenceStore::System {
  using Value = CFOwned<CFPropertyListRef>;  // null: no such key

  CFOwned<CFStringRef> application;
  std::map<std::string, Value> known;    // as the store returned it, once a key
  std::map<std::string, Value> changes;  // null: the key goes

  CFPropertyListRef value(const std::string& key) {
    if (const auto change = changes.find(key); change != changes.end()) return change->second.get();
    auto found = known.find(key);
    if (found == known.end()) found = known.emplace(key, read(key)).first;
    return found->second.get();
  }

  Value read(const std::string& key) const {
    const CFOwned<CFStringRef> name = romanString(key.c_str());
    if (!application || !name) return nullptr;
    const std::lock_guard<std::mutex> lock(storeMutex);
    return Value(CFPreferencesCopyAppValue(name.get(), application.get()));
  }

  void write(const std::string& key, CFPropertyListRef changed) const {
    const CFOwned<CFStringRef> name = romanString(key.c_str());
    if (name) CFPreferencesSetAppValue(name.get(), changed, application.get());
  }
};

// Where the person's own are not to be touched, by tests for instance, TRELVAN_PREFERENCES names
// others: the system has them in one place, whatever the home folder is called.
PreferenceStore::PreferenceStore(const char* applicationId) : system(std::make_unique<System>()) {
  const char* others = std::getenv("TRELVAN_PREFERENCES");
  system->application = romanString(others != nullptr && *others != 0 ? others : applicationId);
}

PreferenceStore::~PreferenceStore() = default;

// Read into a copy: what a refused conversion leaves in its buffer is undefined.
bool PreferenceStore::getString(const char* key, char* buffer, std::size_t size) const {
  const CFPropertyListRef value = system->value(key);
  if (value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()) return false;
  std::string text(size, '\0');
  const auto fits = CFStringGetCString(static_cast<CFStringRef>(value), text.data(),
                                       static_cast<CFIndex>(size), kCFStringEncodingMacRoman);
  if (!fits) return false;
  text.copy(buffer, size);
  return true;
}

bool PreferenceStore::getBytes(const char* key, std::vector<unsigned char>& out) const {
  const CFPropertyListRef value = system->value(key);
  if (value == nullptr || CFGetTypeID(value) != CFDataGetTypeID()) return false;
  const auto data = static_cast<CFDataRef>(value);
  const UInt8* bytes = CFDataGetBytePtr(data);
  out.assign(bytes, bytes + CFDataGetLength(data));
  return true;
}

void PreferenceStore::setString(const char* key, const char* value) {
  if (CFOwned<CFStringRef> text = romanString(value)) system->changes[key] = std::move(text);
}

void PreferenceStore::setBytes(const char* key, const void* bytes, std::size_t size) {
  const auto* data = static_cast<const UInt8*>(bytes);
  CFOwned<CFDataRef> copy(CFDataCreate(kCFAllocatorDefault, data, static_cast<CFIndex>(size)));
  if (copy) system->changes[key] = std::move(copy);
}

void PreferenceStore::remove(const char* key) {
  system->changes[key] = nullptr;
}

void PreferenceStore::readAgain() {
  system->known.clear();
}

bool PreferenceStore::hasChanges() const {
  return !system->changes.empty();
}

// The system's own service writes, lets nobody wait, and holds itself what it cannot write yet.
bool PreferenceStore::synchronise(std::chrono::milliseconds /*longestWait*/) {
  if (system->changes.empty()) return true;
  if (!system->application) return false;
  const std::lock_guard<std::mutex> lock(storeMutex);
  for (const auto& [key, value] : system->changes) system->write(key, value.get());
  if (!CFPreferencesAppSynchronize(system->application.get())) return false;
  for (auto& [key, value] : system->changes) system->known[key] = std::move(value);
  system->changes.clear();
  return true;
}
