// The plug-in's own bundle, by the dynamic loader and Core Foundation.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

// one reference for each InitMachOLibrary that found it; null: not found yet
extern CFBundleRef gBundleRef;

// Finds the bundle that this code was loaded from. Without it the reference stays as it was; where
// the system cannot make a path or a bundle of it the reference becomes null. Each call is matched
// by one ExitMachOLibrary: bundle objects of one path are shared and counted by the system.
// User-interface thread.
void InitMachOLibrary();
void ExitMachOLibrary();  // releases one reference and leaves the pointer
