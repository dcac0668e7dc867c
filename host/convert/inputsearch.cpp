// The sound files that the inputs of a command line stand for.
#include "host/convert/inputsearch.h"

#include <algorithm>
#include <system_error>

#include "host/base/text.h"
#include "host/sound/soundformat.h"

namespace {

namespace fs = std::filesystem;

bool isNamedLikeSound(const fs::path& file) {
  const std::string extension = lowerCase(file.extension().string());
  const auto& known = soundExtensions();
  return !extension.empty() &&
         std::find(known.begin(), known.end(), extension.substr(1)) != known.end();
}

bool isHidden(const fs::path& path) {
  return path.filename().string().starts_with('.');
}

// Of "takes/", "." and "../takes" as well.
fs::path ownName(const fs::path& folder) {
  std::error_code error;
  const fs::path whole = fs::absolute(folder, error).lexically_normal();
  return whole.has_filename() ? whole.filename() : whole.parent_path().filename();
}

class FolderSearch {
 public:
  FolderSearch(FoundInputs& results, const fs::path& leftOut) : found(results), outputs(leftOut) {}

  void search(const fs::path& folder, const fs::path& below) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    std::vector<fs::path> inside;
    while (!error && entry != fs::directory_iterator()) {
      if (!isHidden(entry->path())) inside.push_back(entry->path());
      entry.increment(error);
    }
    if (error) {
      found.failures.push_back(folder.string() + ": cannot be read (" + error.message() + ")");
      return;
    }
    std::sort(inside.begin(), inside.end());
    for (const fs::path& path : inside) take(path, below);
  }

 private:
  void take(const fs::path& path, const fs::path& below) {
    std::error_code error;
    if (!isFolder(path)) {
      if (isNamedLikeSound(path)) takeFile(path, below);
    } else if (!fs::is_symlink(path, error) && !isOutputs(path)) {
      search(path, below / path.filename());
    }
  }

  // A pipe that nobody named may never bring anything.
  void takeFile(const fs::path& path, const fs::path& below) {
    std::error_code error;
    if (fs::is_other(path, error)) {
      found.failures.push_back(path.string() + ": is no regular file");
    } else {
      found.files.push_back({path, below});
    }
  }

  bool isOutputs(const fs::path& folder) const {
    std::error_code error;
    return !outputs.empty() && fs::equivalent(folder, outputs, error);
  }

  FoundInputs& found;
  const fs::path& outputs;
};

}  // namespace

bool isFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

FoundInputs findInputs(const std::vector<std::string>& named, const fs::path& outputs) {
  FoundInputs found;
  FolderSearch search(found, outputs);
  for (const std::string& input : named) {
    if (!isFolder(input)) {
      found.files.push_back({input, {}});
      continue;
    }
    const std::size_t files = found.files.size();
    const std::size_t failures = found.failures.size();
    search.search(input, named.size() > 1 ? ownName(input) : fs::path());
    if (found.files.size() == files && found.failures.size() == failures)
      found.failures.push_back(input + ": a folder without sound files");
  }
  return found;
}
