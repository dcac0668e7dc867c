// What became of all files of a run.
#include "host/cli/summary.h"

#include "host/cli/json.h"

void Summary::add(const std::filesystem::path& input, const FileOutcome& outcome) {
  files.push_back({input, outcome.failure, outcome.document});
  if (outcome.failed()) ++failed;
  if (outcome.skipped) ++skipped;
  if (!outcome.warning.empty()) ++warned;
}

std::string Summary::line() const {
  if (files.size() < 2) return {};
  std::string text = std::to_string(files.size()) +
                     " files: " + std::to_string(files.size() - failed - skipped) + " done";
  if (skipped != 0) text += ", " + std::to_string(skipped) + " skipped";
  if (failed != 0) text += ", " + std::to_string(failed) + " failed";
  if (warned != 0) text += ", " + std::to_string(warned) + " with warnings";
  return text;
}

std::string Summary::document() const {
  Json list = Json::array();
  for (const File& file : files) {
    if (!file.failure.empty()) {
      list.push_back({{"input", {{"file", file.input.string()}}}, {"error", file.failure}});
    } else if (file.document.empty()) {
      list.push_back({{"input", {{"file", file.input.string()}}}, {"skipped", true}});
    } else {
      list.push_back(Json::parse(file.document));
    }
  }
  return documentText({{"files", std::move(list)},
                       {"summary",
                        {{"files", files.size()},
                         {"done", files.size() - failed - skipped},
                         {"skipped", skipped},
                         {"failed", failed},
                         {"warned", warned}}}});
}
