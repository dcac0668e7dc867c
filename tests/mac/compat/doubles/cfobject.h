// The objects of the Core Foundation test double, and what tests ask of it.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <optional>
#include <string>
#include <vector>

// Stricter than the real library: a null object, one of the wrong type, and one after its last
// release end the process.
namespace cfdouble {

enum class Kind : CFTypeID { string = 7, data = 20, url = 29, bundle = 30 };

struct Object {
  Kind kind;
  long references = 1;       // 0: gone; the memory stays, so that a later use is seen
  std::u16string text;       // a string's
  std::vector<UInt8> bytes;  // a data object's
  std::string path;          // a URL's or a bundle's
};

Object* create(Kind kind);
Object* get(CFTypeRef cf, std::optional<Kind> kind = std::nullopt);

bool decode(const char* text, CFStringEncoding encoding, std::u16string& out);
bool encode(const std::u16string& text, CFStringEncoding encoding, std::string& out);

// ---- for tests ----
long references();        // to all objects, but for those of the preferences themselves
long bundleReferences();  // of all bundles
// Preferences live in memory and, once synchronised, on a disk of the double's own.
void startPreferences();    // nothing stored, disk in order
void restartPreferences();  // as if all processes had ended: what was not synchronised is lost
void failSynchronising(bool fails);
int synchronisings();  // since startPreferences
// on the disk
std::optional<std::u16string> storedText(const std::string& application, const std::string& key);
std::optional<std::vector<UInt8>> storedBytes(const std::string& application,
                                              const std::string& key);
long heldByPreferences();

}  // namespace cfdouble
