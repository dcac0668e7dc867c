// Follows the includes of all rooms.
#include "tests/layout/layoutchecker.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "tests/layout/roomrules.h"
#include "tests/layout/sourcefile.h"

namespace fs = std::filesystem;

namespace {

class Checker {
 public:
  explicit Checker(fs::path tree) : root(std::move(tree)) {
    for (const std::string& path : sourcePaths(root)) sources.emplace(path, readSource(root, path));
  }

  std::vector<std::string> check() {
    for (const auto& [path, source] : sources) {
      checkOpening(source);
      checkIncludes(source);
      checkConditions(source);
    }
    for (const auto& [path, source] : sources) follow(path);
    return violations;
  }

 private:
  void report(const std::string& path, int line, const std::string& what) {
    violations.push_back(path + ":" + std::to_string(line) + ": " + what);
  }

  void checkOpening(const SourceFile& source) {
    const std::string& text = source.openingComment;
    const bool isSentence = text.size() > 1 && std::string(".!?").find(text.back()) != std::string::npos;
    if (!isSentence) report(source.path, 1, "does not open with a comment that says in a sentence what the file is");
  }

  void checkConditions(const SourceFile& source) {
    const std::string folders = fs::path(source.path).parent_path().string();
    const bool isSystems = folders.find("linux") != std::string::npos || folders.find("mac") != std::string::npos;
    if (isSystems) return;
    for (const int line : source.systemConditions) report(source.path, line, "asks for the operating system");
  }

  // The file that an include of ours names, from the root; the name itself if the file is not there; none for others'.
  std::optional<std::string> ourTarget(const SourceFile& source, const std::string& include) const {
    if (sources.count(include) != 0) return include;
    const std::string beside = (fs::path(source.path).parent_path() / include).lexically_normal().generic_string();
    if (sources.count(beside) != 0) return beside;
    return roomOf(include).empty() ? std::nullopt : std::optional(include);
  }

  void checkIncludes(const SourceFile& source) {
    for (const SourceFile::Include& include : source.includes) {
      const std::optional<std::string> target = ourTarget(source, include.target);
      if (target && sources.count(*target) == 0) {
        report(source.path, include.line, "includes " + *target + ", which is not there");
      } else if ((target || isToolkit(include.target)) && !mayInclude(source.path, target.value_or(include.target))) {
        report(source.path, include.line, "may not include " + target.value_or(include.target));
      }
    }
  }

  // Depth first; a file met again on the way back to itself closes a cycle, which is told once.
  void follow(const std::string& path) {
    const auto met = std::find(way.begin(), way.end(), path);
    if (met != way.end()) {
      std::string cycle;
      for (auto step = met; step != way.end(); ++step) cycle += *step + " -> ";
      report(path, 1, "is in a cycle of includes: " + cycle + path);
      return;
    }
    if (!followed.insert(path).second) return;
    way.push_back(path);
    const SourceFile& source = sources.at(path);
    for (const SourceFile::Include& include : source.includes) {
      const std::optional<std::string> target = ourTarget(source, include.target);
      if (target && sources.count(*target) != 0) follow(*target);
    }
    way.pop_back();
  }

  fs::path root;
  std::map<std::string, SourceFile> sources;
  std::vector<std::string> way;
  std::set<std::string> followed;
  std::vector<std::string> violations;
};

}  // namespace

std::vector<std::string> sourcePaths(const fs::path& root) {
  std::vector<std::string> paths;
  for (const std::string& room : rooms()) {
    if (!fs::is_directory(root / room)) continue;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root / room)) {
      if (entry.is_regular_file() && isSource(entry.path())) {
        paths.push_back(entry.path().lexically_relative(root).generic_string());
      }
    }
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

std::vector<std::string> layoutViolations(const fs::path& root) {
  return Checker(root).check();
}
