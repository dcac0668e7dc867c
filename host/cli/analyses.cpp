// --analyse: the figures of all files of a run, without an effect.
#include "host/cli/analyses.h"

#include <utility>

#include "host/cli/filejson.h"
#include "host/cli/reporter.h"
#include "host/cli/workers.h"
#include "host/convert/analysis.h"
#include "host/convert/inputsearch.h"

namespace {

FileOutcome figuresOf(const std::filesystem::path& file, const Arguments& arguments,
                      const Progress& progress) {
  return outcomeFor(file, [&](FileOutcome& outcome) {
    const Analysis analysis = analyse(file, arguments.salvage, progress);
    outcome.report = reportOf(analysis, file);
    outcome.warning = damageWarning(analysis, file);
    if (arguments.json)
      outcome.document = documentText(analysisJson(analysis, file, outcome.warning));
  });
}

}  // namespace

bool analyseAll(const Arguments& arguments, Console& console) {
  FoundInputs found = findInputs(arguments.inputs, {});
  Jobs jobs;
  jobs.failures = std::move(found.failures);
  for (FoundInput& input : found.files) jobs.list.emplace_back().input = std::move(input.file);
  tellFindings(jobs, console);
  expectAll(jobs, console);
  Reporter reporter(jobs, arguments, console);
  workOnAll(jobs.list.size(), arguments.jobs, [&](std::size_t index) {
    const auto progress = [&](std::int64_t frames) { console.advance(frames); };
    reporter.add(index, figuresOf(jobs.list[index].input, arguments, progress));
  });
  reporter.finish();
  return reporter.allDone() && jobs.failures.empty();
}
