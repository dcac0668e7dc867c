// A Core Foundation object that is ours: from a function with Create or Copy in its name, released
// once at the end.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <memory>
#include <type_traits>

struct CFReleaser {
  // never null: that would end the process
  void operator()(CFTypeRef object) const { CFRelease(object); }
};

// Null where the object could not be made. Ref: CFStringRef, CFURLRef and the like.
template <typename Ref>
using CFOwned = std::unique_ptr<std::remove_pointer_t<Ref>, CFReleaser>;
