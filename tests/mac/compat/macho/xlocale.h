// What the C++ library asks of macOS's locales and this C library has not: the functions for a
// given locale, and the classes of characters.
#pragma once

#include <locale.h>
#include <stddef.h>
#include <stdint.h>
#include <stdlib.h>
#include <time.h>
#include <wchar.h>

#if __has_include(<__support/musl/xlocale.h>)
#include <__support/musl/xlocale.h>
#else
#include <__locale_dir/locale_base_api/musl.h>  // from libc++ 19 on
#endif

typedef uint32_t __uint32_t;
#define _CTYPE_A 0x00000100L
#define _CTYPE_C 0x00000200L
#define _CTYPE_D 0x00000400L
#define _CTYPE_L 0x00001000L
#define _CTYPE_P 0x00002000L
#define _CTYPE_S 0x00004000L
#define _CTYPE_U 0x00008000L
#define _CTYPE_X 0x00010000L
#define _CTYPE_B 0x00020000L
#define _CTYPE_R 0x00040000L

extern "C" {
int asprintf_l(char** out, locale_t locale, const char* format, ...);
int snprintf_l(char* out, size_t size, locale_t locale, const char* format, ...);
int sscanf_l(const char* text, locale_t locale, const char* format, ...);
}
