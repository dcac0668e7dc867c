// Preferences of the Core Foundation test double.
#include <map>

#include "cfobject.h"

namespace {

using cfdouble::get;
using cfdouble::Kind;

using Key = std::pair<std::u16string, std::u16string>;  // application, key
struct Stored {
  Kind kind;
  std::u16string text;
  std::vector<UInt8> bytes;
};

auto& memory = *new std::map<Key, cfdouble::Object*>;  // one reference each is ours
auto& disk = *new std::map<Key, Stored>;
bool synchronisingFails = false;
int synchronised = 0;

Key keyOf(CFStringRef application, CFStringRef key) {
  return {get(application, Kind::string)->text, get(key, Kind::string)->text};
}

Key keyOf(const std::string& application, const std::string& key) {
  return {{application.begin(), application.end()}, {key.begin(), key.end()}};  // ASCII
}

void forgetMemory() {
  for (const auto& [key, object] : memory) CFRelease(object);
  memory.clear();
}

}  // namespace

namespace cfdouble {

long heldByPreferences() {
  return static_cast<long>(memory.size());
}

void startPreferences() {
  forgetMemory();
  disk.clear();
  synchronisingFails = false;
  synchronised = 0;
}

void restartPreferences() {
  forgetMemory();
  for (const auto& [key, stored] : disk) {
    Object* object = create(stored.kind);
    object->text = stored.text;
    object->bytes = stored.bytes;
    memory[key] = object;
  }
}

void failSynchronising(bool fails) {
  synchronisingFails = fails;
}

int synchronisings() {
  return synchronised;
}

std::optional<std::u16string> storedText(const std::string& application, const std::string& key) {
  const auto found = disk.find(keyOf(application, key));
  if (found == disk.end() || found->second.kind != Kind::string) return std::nullopt;
  return found->second.text;
}

std::optional<std::vector<UInt8>> storedBytes(const std::string& application,
                                              const std::string& key) {
  const auto found = disk.find(keyOf(application, key));
  if (found == disk.end() || found->second.kind != Kind::data) return std::nullopt;
  return found->second.bytes;
}

}  // namespace cfdouble

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationID) {
  const auto found = memory.find(keyOf(applicationID, key));
  return found == memory.end() ? nullptr : CFRetain(found->second);
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID) {
  const Key place = keyOf(applicationID, key);
  if (value != nullptr) CFRetain(value);
  if (const auto found = memory.find(place); found != memory.end()) {
    CFRelease(found->second);
    memory.erase(found);
  }
  if (value != nullptr) memory[place] = get(value);
}

Boolean CFPreferencesAppSynchronize(CFStringRef applicationID) {
  ++synchronised;
  if (synchronisingFails) return 0;
  const std::u16string application = get(applicationID, Kind::string)->text;
  std::erase_if(disk, [&](const auto& entry) { return entry.first.first == application; });
  for (const auto& [key, object] : memory) {
    if (key.first == application) disk[key] = {object->kind, object->text, object->bytes};
  }
  return 1;
}
