// Declarations of the dynamic loader's queries, for the test double on Linux and the Mach-O check.
#pragma once

#include <stdint.h>

struct mach_header;

extern "C" {
uint32_t _dyld_image_count(void);
const struct mach_header* _dyld_get_image_header(uint32_t image_index);
const char* _dyld_get_image_name(uint32_t image_index);
int _NSGetExecutablePath(char* buf, uint32_t* bufsize);
}
