// What became of all files of a run.
#include "host/cli/summary.h"

#include "host/cli/json.h"

void Summary::add(const Job& job, const FileOutcome& outcome) {
  files.push_back({job.input.string(), job.output.string(), outcome.failure, outcome.document});
  if (outcome.failed()) ++failed;
  if (outcome.skipped) ++skipped;
  if (!outcome.warning.empty()) ++warned;
}

std::string Summary::line() const {
  if (files.size() < 2) return {};
  std::string text = std::to_string(files.size()) + " files: " + std::to_string(done()) + " done";
  if (skipped != 0) text += ", " + std::to_string(skipped) + " skipped";
  if (failed != 0) text += ", " + std::to_string(failed) + " failed";
  if (warned != 0) text += ", " + std::to_string(warned) + " with warnings";
  return text;
}

std::string Summary::document(const std::vector<std::string>& errors) const {
  Json list = Json::array();
  for (const File& file : files) {
    if (!file.failure.empty()) {
      list.push_back({{"input", {{"file", file.input}}}, {"error", file.failure}});
    } else if (file.document.empty()) {
      list.push_back({{"input", {{"file", file.input}}},
                      {"output", {{"file", file.output}}},
                      {"skipped", true}});
    } else {
      list.push_back(Json::parse(file.document));
    }
  }
  return documentText({{"files", std::move(list)},
                       {"errors", errors},
                       {"summary",
                        {{"files", files.size()},
                         {"done", done()},
                         {"skipped", skipped},
                         {"failed", failed},
                         {"warned", warned}}}});
}
