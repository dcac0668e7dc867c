// From a bundle or a binary as named, or from nothing named, to the binary that is loaded.
#pragma once

#include <filesystem>
#include <vector>

// Accepts the binary itself and a .vst bundle, in which Contents/<architecture>-linux/ is looked
// into, on macOS Contents/MacOS/, and, where nothing of the kind is there, the name of an installed
// one. Returns an absolute path. Throws Failure where there is nothing to load.
std::filesystem::path pluginBinary(const std::filesystem::path& bundleOrBinary);

// Where Trelvan.vst is looked for when no plug-in is named, in this order: the folder of
// `executable` and its parents, each with what an installation or a build has there, then
// pluginFolders().
std::vector<std::filesystem::path> defaultPluginPlaces(const std::filesystem::path& executable);
// The first of the places that is there. Throws Failure where none is.
std::filesystem::path firstPlugin(const std::vector<std::filesystem::path>& places);
