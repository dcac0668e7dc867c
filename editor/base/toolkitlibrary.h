// The toolkit's library, which is set up once however many editors there are.
#pragma once

// Held by everything that uses the toolkit: the first one made sets the library up (fonts, bitmaps
// by number from the plug-in's own resources), the last one gone takes it down. Needs no display
// and opens nothing. User-interface thread; making and ending are safe on several threads at once,
// since hosts may make instances so.
class ToolkitLibrary {
 public:
  ToolkitLibrary();
  ~ToolkitLibrary();
  ToolkitLibrary(const ToolkitLibrary&) = delete;
  ToolkitLibrary& operator=(const ToolkitLibrary&) = delete;
};
