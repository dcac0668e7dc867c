// The Core Foundation test double itself: what it must not let pass.
#include "cfobject.h"

#include <gtest/gtest.h>

namespace {

CFStringRef text(const char* bytes) {
  return CFStringCreateWithCString(kCFAllocatorDefault, bytes, kCFStringEncodingMacRoman);
}

TEST(CoreFoundationDouble, EndsTheProcessWhenNullIsReleased) {
  EXPECT_DEATH(CFRelease(nullptr), "null object");
}

TEST(CoreFoundationDouble, EndsTheProcessWhenAnObjectIsReleasedOnceTooOften) {
  CFStringRef string = text("a");
  CFRelease(string);
  EXPECT_DEATH(CFRelease(string), "after its last release");
}

TEST(CoreFoundationDouble, EndsTheProcessWhenAStringIsTakenForData) {
  CFStringRef string = text("a");
  EXPECT_DEATH(CFDataGetLength(reinterpret_cast<CFDataRef>(string)), "wrong type");
  CFRelease(string);
}

TEST(CoreFoundationDouble, CountsAReferenceThatIsNotReleased) {
  const long before = cfdouble::references();
  CFStringRef string = text("a");
  CFRetain(string);
  EXPECT_EQ(cfdouble::references(), before + 2);
  CFRelease(string);
  CFRelease(string);
  EXPECT_EQ(cfdouble::references(), before);
}

TEST(CoreFoundationDouble, LeavesRubbishInTheBufferOfARefusedConversion) {
  CFStringRef string = text("long");
  char buffer[5] = "kept";
  EXPECT_FALSE(CFStringGetCString(string, buffer, 4, kCFStringEncodingMacRoman));
  EXPECT_NE(buffer[0], 'k');
  CFRelease(string);
}

}  // namespace
