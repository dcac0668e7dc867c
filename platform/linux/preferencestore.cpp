// Preferences on Linux: one key file below the user's configuration folder.
#include "platform/preferencestore.h"

#include <glib.h>
#include <glib/gstdio.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <optional>
#include <string>

#include "platform/linux/environment.h"
#include "platform/linux/sharedfile.h"
#include "platform/paths.h"

namespace {

constexpr char kGroup[] = "Preferences";
// Then the bytes, percent-encoded where they are not plain.
constexpr char kStringMark[] = "string:";
constexpr char kBytesMark[] = "bytes:";        // then two hexadecimal digits a byte
constexpr std::size_t kLargestFile = 1 << 20;  // bytes; what the plug-in keeps takes 30 kB

struct FreeText {
  void operator()(char* text) const { g_free(text); }
};
struct FreeTexts {
  void operator()(char** texts) const { g_strfreev(texts); }
};
struct FreeKeyFile {
  void operator()(GKeyFile* file) const { g_key_file_free(file); }
};
struct FreeBytes {
  void operator()(GBytes* bytes) const { g_bytes_unref(bytes); }
};
using Text = std::unique_ptr<char, FreeText>;
using KeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

// Empty where the user has none. GLib would remember the first value.
std::string configFolder() {
  std::string config = environmentVariable("XDG_CONFIG_HOME");
  if (config.starts_with('/')) return config;
  const std::string home = environmentVariable("HOME");
  return home.starts_with('/') ? home + "/.config" : std::string();
}

// "com.maker.product" -> ".../maker/product.conf"; empty where the identifier or the folder does
// not allow it.
std::string pathOf(const std::string& applicationId) {
  const std::string folder = configFolder();
  const std::size_t maker = applicationId.find('.') + 1;
  const std::size_t product = applicationId.find('.', maker) + 1;
  if (folder.empty() || maker == 0 || product == 0 || product - maker < 2 ||
      product == applicationId.size())
    return {};
  if (applicationId.find('/') != std::string::npos) return {};
  return folder + "/" + applicationId.substr(maker, product - maker - 1) + "/" +
         applicationId.substr(product) + ".conf";
}

std::string encodedString(const char* value) {
  const Text text(
      g_uri_escape_bytes(reinterpret_cast<const guint8*>(value), std::strlen(value), "/ "));
  return kStringMark + std::string(text.get());
}

std::string encodedBytes(const unsigned char* bytes, std::size_t size) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = kBytesMark;
  text.reserve(text.size() + 2 * size);
  for (std::size_t i = 0; i < size; ++i) {
    text += kDigits[bytes[i] >> 4];
    text += kDigits[bytes[i] & 15];
  }
  return text;
}

// What stands after the mark; null where the value is of the other type.
const char* afterMark(const std::string& value, const char* mark) {
  return value.rfind(mark, 0) == 0 ? value.c_str() + std::strlen(mark) : nullptr;
}

std::optional<std::string> decodedString(const std::string& value) {
  const char* text = afterMark(value, kStringMark);
  if (text == nullptr) return std::nullopt;
  const std::unique_ptr<GBytes, FreeBytes> bytes(g_uri_unescape_bytes(text, -1, nullptr, nullptr));
  if (!bytes) return std::nullopt;
  gsize size = 0;
  const auto* data = static_cast<const char*>(g_bytes_get_data(bytes.get(), &size));
  return size == 0 ? std::string() : std::string(data, size);
}

std::optional<std::vector<unsigned char>> decodedBytes(const std::string& value) {
  const char* text = afterMark(value, kBytesMark);
  if (text == nullptr || std::strlen(text) % 2 != 0) return std::nullopt;
  std::vector<unsigned char> bytes;
  for (; *text != 0; text += 2) {
    const int high = g_ascii_xdigit_value(text[0]);
    const int low = g_ascii_xdigit_value(text[1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes.push_back(static_cast<unsigned char>(high * 16 + low));
  }
  return bytes;
}

std::optional<std::string> valueIn(GKeyFile* file, const std::string& key) {
  const Text value(g_key_file_get_value(file, kGroup, key.c_str(), nullptr));
  if (!value) return std::nullopt;
  return std::string(value.get());
}

// A key that stands there twice, as a person's editor may leave it, has its last value; GLib would
// take away that one alone, and the one before would be back.
void dropCopies(GKeyFile* file) {
  gsize count = 0;
  const std::unique_ptr<char*[], FreeTexts> keys(
      g_key_file_get_keys(file, kGroup, &count, nullptr));
  std::map<std::string, std::string> values;
  for (gsize i = 0; i < count; ++i) values[keys[i]] = valueIn(file, keys[i]).value_or("");
  if (values.size() == count) return;
  g_key_file_remove_group(file, kGroup, nullptr);
  for (const auto& [key, value] : values)
    g_key_file_set_value(file, kGroup, key.c_str(), value.c_str());
}

struct Loaded {
  KeyFile keys{g_key_file_new()};  // empty where nothing could be read
  // false: the file is there and cannot be read, so nobody may write over it
  bool replaceable = true;
  bool damaged = false;  // it is no key file, or too large for one
};

Loaded load(const std::string& path) {
  Loaded loaded;
  std::string text;
  const sharedfile::Reading reading = sharedfile::read(path, kLargestFile, text);
  loaded.replaceable = reading != sharedfile::Reading::unreadable;
  loaded.damaged = reading == sharedfile::Reading::tooLarge;
  if (reading != sharedfile::Reading::done) return loaded;
  loaded.damaged = g_key_file_load_from_data(loaded.keys.get(), text.data(), text.size(),
                                             G_KEY_FILE_KEEP_COMMENTS, nullptr) == FALSE;
  if (loaded.damaged) loaded.keys.reset(g_key_file_new());
  dropCopies(loaded.keys.get());
  return loaded;
}

}  // namespace

struct PreferenceStore::System {
  using Value = std::optional<std::string>;  // encoded; none: no such key
  struct Change {
    Value value;
    // What stood under the key when the change was refused first, where that could be read.
    std::optional<Value> before = std::nullopt;
  };
  using Changes = std::map<std::string, Change>;

  std::string path;  // empty: no preferences
  KeyFile stored;    // null: not read yet
  Changes changes;

  Value value(const std::string& key) {
    if (const auto change = changes.find(key); change != changes.end()) return change->second.value;
    if (path.empty()) return std::nullopt;
    if (!stored) stored = std::move(load(path).keys);
    return valueIn(stored.get(), key);
  }

  // True where that made a difference. What others have stored since a change waits is newer than
  // the change, and stays.
  bool applyTo(GKeyFile* keys) const {
    bool differs = false;
    for (const auto& [key, change] : changes) {
      const auto& [value, before] = change;
      const Value now = valueIn(keys, key);
      if (now == value || (before && now != *before)) continue;
      differs = true;
      if (value) {
        g_key_file_set_value(keys, kGroup, key.c_str(), value->c_str());
      } else {
        g_key_file_remove_key(keys, kGroup, key.c_str(), nullptr);
      }
    }
    return differs;
  }

  bool write(std::chrono::milliseconds longestWait);

  // Needs no lock. A file that cannot be read is asked again at the next refusal.
  void rememberWhatStands() {
    const auto isNew = [](const auto& entry) { return !entry.second.before; };
    if (path.empty() || std::none_of(changes.begin(), changes.end(), isNew)) return;
    const Loaded now = load(path);
    if (!now.replaceable) return;
    for (auto& [key, change] : changes)
      if (!change.before) change.before = valueIn(now.keys.get(), key);
  }
};

PreferenceStore::PreferenceStore(const char* applicationId) : system(std::make_unique<System>()) {
  system->path = pathOf(applicationId);
}

PreferenceStore::~PreferenceStore() = default;

bool PreferenceStore::getString(const char* key, char* buffer, std::size_t size) const {
  const std::optional<std::string> value = system->value(key);
  const std::optional<std::string> text = value ? decodedString(*value) : std::nullopt;
  if (!text || text->size() >= size) return false;
  std::memcpy(buffer, text->c_str(), text->size() + 1);
  return true;
}

bool PreferenceStore::getBytes(const char* key, std::vector<unsigned char>& out) const {
  const std::optional<std::string> value = system->value(key);
  std::optional<std::vector<unsigned char>> bytes = value ? decodedBytes(*value) : std::nullopt;
  if (!bytes) return false;
  out = std::move(*bytes);
  return true;
}

void PreferenceStore::setString(const char* key, const char* value) {
  system->changes[key] = {encodedString(value)};
}

void PreferenceStore::setBytes(const char* key, const void* bytes, std::size_t size) {
  system->changes[key] = {encodedBytes(static_cast<const unsigned char*>(bytes), size)};
}

void PreferenceStore::remove(const char* key) {
  system->changes[key] = {std::nullopt};
}

void PreferenceStore::readAgain() {
  system->stored.reset();
}

bool PreferenceStore::hasChanges() const {
  return !system->changes.empty();
}

bool PreferenceStore::synchronise(std::chrono::milliseconds longestWait) {
  if (system->changes.empty() || system->write(longestWait)) return true;
  system->rememberWhatStands();
  return false;
}

// Where links lead, and the lock beside it: whoever keeps the file elsewhere finds it there.
bool PreferenceStore::System::write(std::chrono::milliseconds longestWait) {
  if (path.empty()) return false;
  const std::string place = withoutLinks(path);
  if (place.empty() || g_mkdir_with_parents(folderPart(place).c_str(), 0700) != 0) return false;
  const sharedfile::Lock lock(place + ".lock", longestWait);
  if (!lock.isHeld()) return false;
  Loaded now = load(place);  // what others wrote since this object read stays
  if (!now.replaceable) return false;
  if (applyTo(now.keys.get())) {
    gsize size = 0;
    const Text text(g_key_file_to_data(now.keys.get(), &size, nullptr));
    if (size > kLargestFile) return false;
    if (now.damaged && !sharedfile::keepAside(place)) return false;
    if (!sharedfile::replace(place, std::string(text.get(), size), lock.excludes())) return false;
  }
  stored = std::move(now.keys);
  changes.clear();
  return true;
}
