// The names by which the system knows our Objective-C classes.
#pragma once

// All of a process share one list of classes by name, and of two with one name it uses one for
// both: so another version of the plug-in in the same host has others. On the class's @interface;
// the build says what follows the name.
#define TRELVAN_RUNTIME_NAME(name) __attribute__((objc_runtime_name(name "_" TRELVAN_CLASS_SUFFIX)))
