// Finds installed plug-ins by their names, without loading any.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct InstalledPlugin {
  std::string name;            // the file's, without its extension
  std::filesystem::path path;  // a bundle, or a binary
};

// Where plug-ins are looked for: VST_PATH's folders, the person's own, everybody's. A folder may be
// missing.
std::vector<std::filesystem::path> pluginFolders();

// Bundles for this system and binaries in the folders and those below them, in the folders' order,
// each folder's by name. What cannot be read is left out.
std::vector<InstalledPlugin> installedPlugins(const std::vector<std::filesystem::path>& folders);

// A name counts as written, then without regard to case; of several, the first. Throws Failure,
// suggesting names that come near.
std::filesystem::path pluginNamed(const std::string& name,
                                  const std::vector<InstalledPlugin>& installed);
