// Platform services: whole-file access, path splitting, an alert, a recursive lock, byte order, step conversions.
#pragma once

// A file is an opaque pointer to a buffered stream, null where there is none; every operation takes null. Any thread,
// one thread a file. The directory ends in "/", so that it and the name join without a separator.

// Opens dir + fileName and answers its length in bytes; 0 and a null handle where it cannot be opened. forWrite creates
// or truncates; reading asks for update access too, so a file that may not be written does not open.
long XPlatFileOpen(const char* fileName, const char* dir, void** handle, bool forWrite);
// Answer the number of bytes read and written, which may be less than asked for; 0 for a count below 0.
long XPlatFileRead(void* handle, char* buffer, long count);
long XPlatFileWrite(void* handle, const char* buffer, long count);
void XPlatFileClose(void* handle);

// Splits at the last "/", which stays with the directory. Without one, or where a part does not fit into its buffer
// (kXPlatPathPartSize bytes each), both buffers stay as they are.
constexpr unsigned long kXPlatPathPartSize = 256;
void XPlatGetFileNameAndDir(const char* path, char* fileName, char* dir);

// Shows a warning with one button "OK" and returns when the user has dismissed it. User-interface thread only.
// Without a display, or without a program that can show it, it returns at once.
void XPlatDisplayAlert(const char* message);

// A recursive lock. Any thread; null is ignored everywhere. The audio thread never takes one.
void* XPlatCreateMutex();
// timeoutMs 0 waits without limit. The outcome is not told: after a timeout the caller goes on as if it held the lock.
void XPlatLockMutex(void* mutex, unsigned long timeoutMs);
void XPlatUnlockMutex(void* mutex);
void XPlatDeleteMutex(void* mutex);

// Reverses the four bytes at p, of an integer or a float alike.
void mySwapBytes(void* p);

// Float preferences, of which this program keeps none: the first does nothing, the second answers the default.
void setPrefValue(const char* key, float value);
float getPrefValue(const char* key, float defaultValue);

// Between a normalised value, 0..1, and one of `steps` equal bins. All arithmetic in float. value 1 is in the last bin;
// a negative value gives 0 or a negative step.
int paramContToLong(float value, int steps);  // trunc(steps * value)
float paramLongToCont(int step, int steps);   // 0.5 / steps + step / steps, the bin's centre
float long2float(long step, long steps);      // (step + 0.5) / steps
long float2long(float value, long steps);     // trunc(floor(value * steps) + 0.5)
