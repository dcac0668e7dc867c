// What became of one file of a run.
#include "host/cli/outcome.h"

#include <exception>
#include <new>

#include "host/base/failure.h"
#include "host/convert/report.h"

FileOutcome outcomeOf(PluginModule& module, const Arguments& arguments, const Job& job,
                      const Progress& progress) {
  FileOutcome outcome;
  try {
    const Conversion done = convert(module, arguments, job, progress);
    outcome.report = reportOf(done, job);
    outcome.warning = clippingWarning(done, job);
  } catch (const Failure& failure) {
    outcome.failure = failure.what();
  } catch (const std::bad_alloc&) {
    outcome.failure = job.input.string() + ": not enough memory";
  } catch (const std::exception& error) {
    outcome.failure = job.input.string() + ": " + error.what();
  }
  return outcome;
}
