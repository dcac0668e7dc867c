// What the thread sanitizer must not judge: GLib is not built with it, so the locks inside GLib's
// allocator are not seen.

extern "C" const char* __tsan_default_suppressions();
extern "C" const char* __tsan_default_suppressions() {
  return "called_from_lib:libglib-2.0.so.0\n";
}
