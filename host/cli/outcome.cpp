// What became of one file of a run.
#include "host/cli/outcome.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <exception>
#include <filesystem>
#include <new>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/standardstreams.h"
#include "host/base/text.h"
#include "host/cli/filejson.h"
#include "host/convert/report.h"

namespace {

constexpr std::array kTexts = {&FileOutcome::report, &FileOutcome::warning, &FileOutcome::failure,
                               &FileOutcome::document};

}  // namespace

std::optional<FileOutcome> outcomeBefore(const Arguments& arguments, const Job& job) {
  FileOutcome outcome;
  outcome.failure = job.refusal;
  if (outcome.failed()) return outcome;
  std::error_code error;
  outcome.skipped = arguments.skipExisting && std::filesystem::exists(job.output, error);
  if (!outcome.skipped) return std::nullopt;
  outcome.report =
      onOneLine(job.input.string() + ": skipped, " + job.output.string() + " is already there");
  return outcome;
}

FileOutcome outcomeFor(const std::filesystem::path& input,
                       const std::function<void(FileOutcome&)>& work) {
  FileOutcome outcome;
  try {
    work(outcome);
  } catch (const Failure& failure) {
    outcome.failure = failure.what();
  } catch (const std::bad_alloc&) {
    outcome.failure = shownInput(input).string() + ": not enough memory";
  } catch (const std::exception& error) {
    outcome.failure = shownInput(input).string() + ": " + error.what();
  }
  return outcome;
}

FileOutcome outcomeOf(PluginModule& module, const Arguments& arguments, const Job& job,
                      const Progress& progress) {
  if (const auto known = outcomeBefore(arguments, job)) return *known;
  return outcomeFor(job.input, [&](FileOutcome& outcome) {
    const Conversion done = convert(module, arguments, job, progress);
    outcome.report = reportOf(done, job);
    outcome.warning = warningsOf(done, job);
    if (arguments.json) outcome.document = documentText(conversionJson(done, job, outcome.warning));
  });
}

std::string packed(const FileOutcome& outcome) {
  std::string bytes(1, static_cast<char>(outcome.skipped));
  for (const auto text : kTexts) {
    const auto length = static_cast<std::uint64_t>((outcome.*text).size());
    bytes.append(reinterpret_cast<const char*>(&length), sizeof length);
    bytes += outcome.*text;
  }
  return bytes;
}

FileOutcome unpacked(const std::string& bytes) {
  FileOutcome outcome;
  outcome.skipped = bytes.at(0) != 0;
  std::size_t at = 1;
  for (const auto text : kTexts) {
    std::uint64_t length = 0;
    std::memcpy(&length, bytes.data() + at, sizeof length);
    outcome.*text = bytes.substr(at + sizeof length, length);
    at += sizeof length + length;
  }
  return outcome;
}
