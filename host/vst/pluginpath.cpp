// From a bundle or a binary as named, or from nothing named, to the binary that is loaded.
#include "host/vst/pluginpath.h"

#include <algorithm>
#include <system_error>

#include "host/base/failure.h"
#include "host/vst/pluginplaces.h"
#include "host/vst/pluginsearch.h"

namespace {

namespace fs = std::filesystem;

constexpr int kParents = 3;  // folders above the executable's own

fs::path binaryInBundle(const fs::path& bundle) {
  std::error_code error;
  const std::string inContents = "Contents/" + binaryFolderInBundle();
  const fs::path folder = bundle / inContents;
  if (!fs::is_directory(folder, error)) {
    throw Failure(bundle.string() + ": not a plug-in for this system (no " + inContents +
                  " in it)");
  }
  fs::path sameName = folder / (bundle.stem().string() + binarySuffix());
  if (fs::is_regular_file(sameName, error)) return sameName;
  std::vector<fs::path> candidates;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    if (entry.is_regular_file(error) && entry.path().extension() == binarySuffix())
      candidates.push_back(entry.path());
  }
  if (candidates.empty()) throw Failure(bundle.string() + ": no plug-in binary in " + inContents);
  if (candidates.size() > 1) {
    throw Failure(bundle.string() + ": several binaries in " + inContents +
                  "; name the one to load with --plugin");
  }
  return candidates.front();
}

}  // namespace

fs::path pluginBinary(const fs::path& bundleOrBinary) {
  std::error_code error;
  fs::path named = fs::absolute(bundleOrBinary, error).lexically_normal();
  if (!named.has_filename()) named = named.parent_path();  // "X.vst/"
  if (!fs::exists(named, error)) {
    if (bundleOrBinary.has_parent_path())
      throw Failure(bundleOrBinary.string() + ": no such plug-in");
    named = fs::absolute(pluginNamed(bundleOrBinary.string(), installedPlugins(pluginFolders())),
                         error);
  }
  return fs::is_directory(named, error) ? binaryInBundle(named) : named;
}

std::vector<fs::path> defaultPluginPlaces(const fs::path& executable) {
  const fs::path bundle = "Trelvan.vst";
  std::vector<fs::path> places;
  fs::path folder = executable.parent_path();
  for (int level = 0; level <= kParents && !folder.empty(); ++level) {
    places.push_back(folder / bundle);
    places.push_back(folder / "lib" / "vst" / bundle);
    places.push_back(folder / "build" / "release" / bundle);
    if (folder == folder.root_path()) break;
    folder = folder.parent_path();
  }
  for (const fs::path& common : pluginFolders()) places.push_back(common / bundle);
  return places;
}

fs::path firstPlugin(const std::vector<fs::path>& places) {
  std::error_code error;
  const auto found = std::find_if(places.begin(), places.end(),
                                  [&](const fs::path& place) { return fs::exists(place, error); });
  if (found != places.end()) return *found;
  throw Failure(
      "Trelvan.vst is neither beside this program" +
      (places.empty() ? std::string() : " (" + places.front().parent_path().string() + ")") +
      " nor where plug-ins are installed; name it with --plugin");
}
