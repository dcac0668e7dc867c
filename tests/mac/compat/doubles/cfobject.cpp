// Reference counts of the Core Foundation test double, strings and data.
#include "cfobject.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace cfdouble {
namespace {

constexpr char16_t kRoman[] = {
#include "macroman.inc"
};
static_assert(std::size(kRoman) == 128);

std::vector<Object*>& objects() {
  // never ended: objects are looked at until the process is
  static auto* all = new std::vector<Object*>;
  return *all;
}

[[noreturn]] void die(const char* what) {
  std::fprintf(stderr, "Core Foundation double: %s\n", what);
  std::abort();
}

}  // namespace

Object* create(Kind kind) {
  auto* object = new Object;
  object->kind = kind;
  objects().push_back(object);
  return object;
}

Object* get(CFTypeRef cf, std::optional<Kind> kind) {
  if (cf == nullptr) die("null object");
  const auto found = std::find(objects().begin(), objects().end(), cf);
  if (found == objects().end()) die("no object");
  if ((*found)->references == 0) die("object used after its last release");
  if (kind && (*found)->kind != *kind) die("object of the wrong type");
  return *found;
}

bool decode(const char* text, CFStringEncoding encoding, std::u16string& out) {
  for (const auto* p = reinterpret_cast<const unsigned char*>(text); *p != 0; ++p) {
    if (*p < 0x80) {
      out += static_cast<char16_t>(*p);
    } else if (encoding == kCFStringEncodingMacRoman) {
      out += kRoman[*p - 0x80];
    } else if (encoding == kCFStringEncodingISOLatin1) {
      out += static_cast<char16_t>(*p);
    } else if (encoding == kCFStringEncodingUTF8 && (*p & 0xE0) == 0xC0 && (p[1] & 0xC0) == 0x80) {
      out += static_cast<char16_t>((*p & 0x1F) << 6 | (p[1] & 0x3F));
      ++p;
    } else {
      return false;  // longer UTF-8 sequences do not occur in the tests
    }
  }
  return true;
}

bool encode(const std::u16string& text, CFStringEncoding encoding, std::string& out) {
  for (const char16_t character : text) {
    const auto* roman = std::find(std::begin(kRoman), std::end(kRoman), character);
    if (character < 0x80) {
      out += static_cast<char>(character);
    } else if (encoding == kCFStringEncodingMacRoman && roman != std::end(kRoman)) {
      out += static_cast<char>(0x80 + (roman - std::begin(kRoman)));
    } else if (encoding == kCFStringEncodingISOLatin1 && character < 0x100) {
      out += static_cast<char>(character);
    } else if (encoding == kCFStringEncodingUTF8 && character < 0x800) {
      out += static_cast<char>(0xC0 | character >> 6);
      out += static_cast<char>(0x80 | (character & 0x3F));
    } else {
      return false;
    }
  }
  return true;
}

long references() {
  long all = 0;
  for (const Object* object : objects()) all += object->references;
  return all - heldByPreferences();
}

long bundleReferences() {
  long references = 0;
  for (const Object* object : objects())
    references += object->kind == Kind::bundle ? object->references : 0;
  return references;
}

}  // namespace cfdouble

using cfdouble::get;
using cfdouble::Kind;

const CFAllocatorRef kCFAllocatorDefault = nullptr;

CFTypeRef CFRetain(CFTypeRef cf) {
  ++get(cf)->references;
  return cf;
}

void CFRelease(CFTypeRef cf) {
  --get(cf)->references;
}

CFTypeID CFGetTypeID(CFTypeRef cf) {
  return static_cast<CFTypeID>(get(cf)->kind);
}

CFTypeID CFStringGetTypeID() {
  return static_cast<CFTypeID>(Kind::string);
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char* cStr, CFStringEncoding encoding) {
  std::u16string text;
  if (!cfdouble::decode(cStr, encoding, text)) return nullptr;
  auto* object = cfdouble::create(Kind::string);
  object->text = text;
  return reinterpret_cast<CFStringRef>(object);
}

Boolean CFStringGetCString(CFStringRef theString, char* buffer, CFIndex bufferSize,
                           CFStringEncoding encoding) {
  std::string bytes;
  if (cfdouble::encode(get(theString, Kind::string)->text, encoding, bytes) &&
      static_cast<CFIndex>(bytes.size()) < bufferSize) {
    std::memcpy(buffer, bytes.c_str(), bytes.size() + 1);
    return 1;
  }
  std::memset(buffer, 0x7F, static_cast<std::size_t>(bufferSize));  // documented as undefined
  return 0;
}

CFTypeID CFDataGetTypeID() {
  return static_cast<CFTypeID>(Kind::data);
}

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex length) {
  auto* object = cfdouble::create(Kind::data);
  object->bytes.assign(bytes, bytes + length);
  return reinterpret_cast<CFDataRef>(object);
}

CFIndex CFDataGetLength(CFDataRef theData) {
  return static_cast<CFIndex>(get(theData, Kind::data)->bytes.size());
}

const UInt8* CFDataGetBytePtr(CFDataRef theData) {
  return get(theData, Kind::data)->bytes.data();
}
