// Whole-file access on buffered streams, and path splitting.
#pragma once

// A file is an opaque pointer to a buffered stream, null where there is none; every operation takes
// null. Any thread, one thread a file. The directory ends in "/", so that it and the name join
// without a separator.

// Opens dir + fileName and returns its length in bytes; 0 and a null handle where it cannot be
// opened. forWrite creates or truncates; reading asks for update access too, so a file that may not
// be written does not open.
long XPlatFileOpen(const char* fileName, const char* dir, void** handle, bool forWrite);
// As XPlatFileOpen for reading, but for files too that may be read and not written: a colleague's,
// or one on a medium that takes no more.
long XPlatFileOpenToRead(const char* fileName, const char* dir, void** handle);
// Return the number of bytes read and written, which may be less than asked for; 0 for a count
// below 0.
long XPlatFileRead(void* handle, char* buffer, long count);
long XPlatFileWrite(void* handle, const char* buffer, long count);
void XPlatFileClose(void* handle);

// Splits at the last "/", which stays with the directory. Without one, or where a part does not fit
// into its buffer (kXPlatPathPartSize bytes each), both buffers stay as they are.
constexpr unsigned long kXPlatPathPartSize = 256;
void XPlatGetFileNameAndDir(const char* path, char* fileName, char* dir);
