// Finds installed plug-ins by their names.
#include "host/vst/pluginsearch.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/nearnames.h"
#include "host/base/text.h"
#include "host/vst/pluginplaces.h"

namespace {

namespace fs = std::filesystem;

constexpr int kDeepest = 4;  // folders below one that is looked into; a link may lead round

bool isBundle(const fs::path& folder) {
  std::error_code error;
  return fs::is_directory(folder / "Contents" / binaryFolderInBundle(), error);
}

// A binary is told by its ending; where binaries have none, plug-ins are bundles.
bool isBinary(const fs::path& file) {
  std::error_code error;
  return !binarySuffix().empty() && file.extension() == binarySuffix() &&
         fs::is_regular_file(file, error);
}

void addFrom(const fs::path& folder, int depth, std::vector<InstalledPlugin>& found) {
  std::error_code error;
  std::vector<fs::path> entries;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    entries.push_back(entry->path());
  }
  std::sort(entries.begin(), entries.end());
  for (const fs::path& entry : entries) {
    if (isBundle(entry) || isBinary(entry)) {
      found.push_back({entry.stem().string(), entry});
    } else if (depth < kDeepest && fs::is_directory(entry, error)) {
      addFrom(entry, depth + 1, found);
    }
  }
}

}  // namespace

std::vector<fs::path> pluginFolders() {
  std::vector<fs::path> folders;
  const auto add = [&](const fs::path& folder) {
    if (std::find(folders.begin(), folders.end(), folder) == folders.end())
      folders.push_back(folder);
  };
  const char* named = std::getenv("VST_PATH");
  std::istringstream list(named == nullptr ? "" : named);
  for (std::string folder; std::getline(list, folder, ':');) {
    if (!folder.empty()) add(folder);
  }
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home != 0) {
    for (const fs::path& own : ownPluginFoldersInHome()) add(fs::path(home) / own);
  }
  for (const fs::path& common : commonPluginFolders()) add(common);
  return folders;
}

std::vector<InstalledPlugin> installedPlugins(const std::vector<fs::path>& folders) {
  std::vector<InstalledPlugin> found;
  for (const fs::path& folder : folders) addFrom(folder, 0, found);
  return found;
}

fs::path pluginNamed(const std::string& name, const std::vector<InstalledPlugin>& installed) {
  auto found = std::find_if(installed.begin(), installed.end(),
                            [&](const InstalledPlugin& plugin) { return plugin.name == name; });
  if (found == installed.end()) {
    found = std::find_if(installed.begin(), installed.end(), [&](const InstalledPlugin& plugin) {
      return sameLetters(plugin.name, name);
    });
  }
  if (found != installed.end()) return found->path;
  std::vector<std::string> names;
  names.reserve(installed.size());
  for (const InstalledPlugin& plugin : installed) names.push_back(plugin.name);
  const std::string near = suggestion(names, name);
  throw Failure(name + ": no such plug-in, and none of this name is installed" +
                (near.empty() ? "; --list-plugins shows those that are" : near));
}
