// Whether a test is built with a sanitizer that takes crashes and memory for itself.
#pragma once

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define TRELVAN_SANITIZED
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#define TRELVAN_SANITIZED
#endif
