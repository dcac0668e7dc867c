// Looks for the plug-in's image among the loaded ones, and goes up from its file to the bundle.
#include "editor/base/mac/bundlelookup.h"

#include <mach-o/dyld.h>

#include <cstdint>
#include <cstring>

#include "platform/mac/cfowned.h"

// Made by the linker for every image, at its header's address.
extern "C" const char __dso_handle;

CFBundleRef gBundleRef = nullptr;

namespace {

// Null where it is not in the list. The list may change while it is read, if another thread loads
// something: then a name may be missed, never one of another image taken.
const char* ownImageName() {
  const void* own = &__dso_handle;
  const std::uint32_t count = _dyld_image_count();
  for (std::uint32_t i = 1; i < count; ++i) {  // 0 is the host's program
    if (static_cast<const void*>(_dyld_get_image_header(i)) == own) return _dyld_get_image_name(i);
  }
  return nullptr;
}

}  // namespace

void InitMachOLibrary() {
  constexpr int kLevels = 3;  // Trelvan.vst/Contents/MacOS/Trelvan -> Trelvan.vst
  const char* name = ownImageName();
  if (name == nullptr) return;
  CFOwned<CFURLRef> url(CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(name),
      static_cast<CFIndex>(std::strlen(name)), false));
  for (int level = 0; url && level < kLevels; ++level) {
    url.reset(CFURLCreateCopyDeletingLastPathComponent(kCFAllocatorDefault, url.get()));
  }
  gBundleRef = url ? CFBundleCreate(kCFAllocatorDefault, url.get()) : nullptr;
}

void ExitMachOLibrary() {
  if (gBundleRef != nullptr) CFRelease(gBundleRef);
}
