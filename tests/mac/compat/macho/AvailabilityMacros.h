// Versions, as in Apple's header of this name. For the Mach-O check only.
#pragma once
#define MAC_OS_X_VERSION_10_9 1090
#define MAC_OS_X_VERSION_10_14 101400
#define MAC_OS_X_VERSION_MIN_REQUIRED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__
