// URLs and bundles of the Core Foundation test double: paths of this machine's file system.
#include <sys/stat.h>

#include <map>

#include "cfobject.h"

using cfdouble::get;
using cfdouble::Kind;

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* buffer,
                                                 CFIndex bufLen, Boolean) {
  if (bufLen == 0) return nullptr;
  auto* object = cfdouble::create(Kind::url);
  object->path.assign(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(bufLen));
  return reinterpret_cast<CFURLRef>(object);
}

CFURLRef CFURLCreateCopyDeletingLastPathComponent(CFAllocatorRef, CFURLRef url) {
  const std::string& path = get(url, Kind::url)->path;
  const std::size_t slash = path.rfind('/');
  // where the real one may or may not make a URL
  if (slash == std::string::npos || path == "/") return nullptr;
  auto* object = cfdouble::create(Kind::url);
  object->path = slash == 0 ? "/" : path.substr(0, slash);
  return reinterpret_cast<CFURLRef>(object);
}

// One object a path while it lives, as in the real library.
CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef bundleURL) {
  static auto* bundles = new std::map<std::string, cfdouble::Object*>;
  const std::string& path = get(bundleURL, Kind::url)->path;
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return nullptr;
  cfdouble::Object*& bundle = (*bundles)[path];
  if (bundle != nullptr && bundle->references > 0) {
    CFRetain(bundle);
  } else {
    bundle = cfdouble::create(Kind::bundle);
    bundle->path = path;
  }
  return reinterpret_cast<CFBundleRef>(bundle);
}
