// Reads a source file line by line.
#include "tests/layout/sourcefile.h"

#include <fstream>
#include <regex>
#include <set>

bool isSource(const std::filesystem::path& path) {
  static const std::set<std::string> extensions = {".h", ".hpp", ".c", ".cpp", ".m", ".mm"};
  return extensions.count(path.extension().string()) != 0;
}

SourceFile readSource(const std::filesystem::path& root, const std::string& path) {
  static const std::regex include(R"(^\s*#\s*(?:include|import)\s*["<]([^">]+)[">])");
  static const std::regex condition(R"(^\s*#\s*(?:if|ifdef|ifndef|elif)\b.*)");
  static const std::regex system(
      R"(\b(?:__APPLE__|__MACH__|__linux__|__linux|linux|__gnu_linux__|__unix__|_WIN32|_WIN64|WIN32|MAC|LINUX|WINDOWS|TARGET_OS_\w+)\b)");
  SourceFile source{path, {}, {}, {}};
  std::ifstream in(root / path);
  std::string line;
  bool opening = true;
  for (int number = 1; std::getline(in, line); ++number) {
    opening = opening && line.rfind("//", 0) == 0;
    if (opening) source.openingComment += (number > 1 ? " " : "") + line.substr(std::min<std::size_t>(3, line.size()));
    std::smatch match;
    if (std::regex_search(line, match, include)) source.includes.push_back({number, match[1]});
    if (std::regex_search(line, condition) && std::regex_search(line, system))
      source.systemConditions.push_back(number);
  }
  return source;
}
