// Tells the person what became of the files of a run, in the order in which they were named.
#include "host/cli/reporter.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>

#include "host/base/text.h"
#include "host/sound/framecount.h"

void tellFindings(const Jobs& jobs, Console& console) {
  for (const std::string& note : jobs.notes) console.say(onOneLine(note));
  for (const std::string& failure : jobs.failures) console.warn(failure);
}

void expectAll(const Jobs& jobs, Console& console) {
  if (!console.showsProgress()) return;
  std::int64_t frames = 0;
  for (const Job& job : jobs.list) frames += statedFrames(job.input);
  console.expect(frames, static_cast<int>(jobs.list.size()));
}

Reporter::Reporter(const Jobs& all, const Arguments& arguments, Console& display)
    : jobs(all),
      document(arguments.json),
      answering(arguments.analyse && !arguments.json),
      outcomes(all.list.size()),
      console(display) {}

void Reporter::add(std::size_t index, FileOutcome outcome) {
  const std::lock_guard guard(lock);
  if (outcome.failed()) failed = true;
  outcomes[index] = std::move(outcome);
  console.fileDone();
  for (; next < outcomes.size() && outcomes[next]; ++next) {
    show(*outcomes[next]);
    summary.add(jobs.list[next], *outcomes[next]);
  }
}

void Reporter::show(const FileOutcome& shown) {
  if (!shown.report.empty()) answering ? console.print(shown.report) : console.say(shown.report);
  std::istringstream warnings(shown.warning);
  for (std::string line; std::getline(warnings, line);) console.warn(line);
  if (!shown.failure.empty()) console.warn(shown.failure);
}

void Reporter::finish() {
  const std::lock_guard guard(lock);
  if (next < outcomes.size()) return;
  const std::string line = summary.line();
  if (!line.empty()) console.say(line);
  if (document) console.print(summary.document(jobs.failures));
}
