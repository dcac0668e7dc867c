// The few names of the Objective-C runtime that the plug-in uses. For the Mach-O check only.
#pragma once
typedef signed char OBJC_SCHAR;
#if defined(__arm64__)
typedef bool BOOL;
#else
typedef signed char BOOL;  // x86_64 macOS
#endif
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
extern "C" BOOL sel_isEqual(SEL lhs, SEL rhs);
