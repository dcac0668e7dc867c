// Effects in processes of their own.
#include "host/cli/isolation.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/failure.h"
#include "host/base/interruption.h"
#include "host/base/partfile.h"
#include "host/base/standardstreams.h"
#include "host/cli/childprocess.h"
#include "host/cli/outcome.h"
#include "host/vst/pluginmodule.h"

namespace {

// A message's first letter.
constexpr char kProgress = 'p';  // frames, in figures
constexpr char kOutcome = 'o';   // packed
constexpr char kFailure = 'f';   // exit status, one figure, and the text

struct Running {
  std::size_t index;  // of the job
  std::unique_ptr<ChildProcess> process;
  std::optional<FileOutcome> outcome;
};

std::vector<const ChildProcess*> processesOf(const std::vector<Running>& running) {
  std::vector<const ChildProcess*> processes;
  processes.reserve(running.size());
  for (const Running& one : running) processes.push_back(one.process.get());
  return processes;
}

// In the child. A crash while the plug-in is unloaded comes after the file is done, and is no
// matter.
void convertAndTell(const std::filesystem::path& plugin, const Arguments& arguments, const Job& job,
                    const ChildProcess::Send& send) {
  const ExitWatch watch;
  try {
    PluginModule module(plugin);
    const auto tellProgress = [&](std::int64_t frames) {
      send(kProgress + std::to_string(frames));
    };
    send(kOutcome + packed(outcomeOf(module, arguments, job, tellProgress)));
  } catch (const Failure& failure) {
    FileOutcome outcome;
    outcome.failure = failure.what();
    send(kOutcome + packed(outcome));
  }
}

// What a process leaves that could not clean up: it was killed.
void removeLeftOf(const Jobs& jobs, const std::vector<std::size_t>& unfinished) {
  for (const std::size_t index : unfinished) {
    const Job& job = jobs.list[index];
    removeLeftParts(job.output.parent_path());
    if (job.plot) removeLeftParts(job.plot->parent_path());
  }
}

void endAll(const Jobs& jobs, std::vector<Running>& running) {
  std::vector<std::size_t> unfinished;
  unfinished.reserve(running.size());
  for (const Running& one : running) unfinished.push_back(one.index);
  running.clear();
  removeLeftOf(jobs, unfinished);
}

void take(const std::vector<std::string>& messages, Running& from, Console& console) {
  for (const std::string& message : messages) {
    if (message[0] == kProgress) console.advance(std::stoll(message.substr(1)));
    if (message[0] == kOutcome) from.outcome = unpacked(message.substr(1));
  }
}

FileOutcome outcomeOfEnded(const Running& running, const Job& job) {
  if (running.outcome) return *running.outcome;
  FileOutcome outcome;
  outcome.failure =
      shownInput(job.input).string() + ": the effect's process " + running.process->ending();
  return outcome;
}

std::string failureMessage(const Failure& failure) {
  return kFailure + std::to_string(static_cast<int>(failure.status())) + failure.what();
}

void doAndTell(const std::function<void()>& work, const ChildProcess::Send& send) {
  const ExitWatch watch;
  try {
    work();
    send(std::string(1, kOutcome));
  } catch (const Failure& failure) {
    send(failureMessage(failure));
  } catch (const std::bad_alloc&) {
    send(failureMessage(Failure("not enough memory")));
  } catch (const std::exception& error) {
    send(failureMessage(Failure(error.what())));
  }
}

}  // namespace

void doIsolated(const std::string& what, const std::function<void()>& work) {
  ChildProcess process([&](const ChildProcess::Send& send) { doAndTell(work, send); }, {});
  std::vector<std::string> messages;
  while (process.receive(messages)) {
    if (OrderlyEnd::isAsked()) return;
    waitForAny({&process});
  }
  if (messages.empty()) throw Failure(what + ": the effect's process " + process.ending());
  const std::string& message = messages.front();
  if (message[0] != kFailure) return;
  const auto status = static_cast<ExitStatus>(message[1] - '0');
  if (status == ExitStatus::wrongUsage) throw UsageFailure(message.substr(2));
  throw Failure(message.substr(2), status);
}

void convertIsolated(const std::filesystem::path& plugin, const Arguments& arguments,
                     const Jobs& jobs, std::size_t most, Console& console, Reporter& reporter) {
  std::vector<Running> running;
  // False: not now.
  const auto start = [&](std::size_t index) {
    const Job& job = jobs.list[index];
    if (const auto known = outcomeBefore(arguments, job)) {
      reporter.add(index, *known);
      return true;
    }
    try {
      running.push_back({index,
                         std::make_unique<ChildProcess>(
                             [&](const ChildProcess::Send& send) {
                               convertAndTell(plugin, arguments, job, send);
                             },
                             processesOf(running)),
                         {}});
    } catch (const Failure& failure) {
      if (!running.empty()) return false;  // there will be room when one of them has ended
      FileOutcome outcome;
      outcome.failure = shownInput(job.input).string() + ": " + failure.what();
      reporter.add(index, std::move(outcome));
    }
    return true;
  };
  std::vector<std::size_t> crashed;
  std::size_t next = 0;
  while (next < jobs.list.size() || !running.empty()) {
    while (next < jobs.list.size() && running.size() < most && start(next)) ++next;
    if (!running.empty()) waitForAny(processesOf(running));
    if (OrderlyEnd::isAsked()) return endAll(jobs, running);
    std::erase_if(running, [&](Running& one) {
      std::vector<std::string> messages;
      const bool goesOn = one.process->receive(messages);
      take(messages, one, console);
      if (goesOn) return false;
      if (!one.outcome) crashed.push_back(one.index);
      reporter.add(one.index, outcomeOfEnded(one, jobs.list[one.index]));
      return true;
    });
  }
  removeLeftOf(jobs, crashed);
}
