// Included by every Objective-C++ file: they count their references themselves, and would release
// what they must not under automatic counting.
#pragma once

#if defined(__has_feature)
#if __has_feature(objc_arc)
#error "compile this file without automatic reference counting"
#endif
#endif
