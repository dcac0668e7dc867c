// The table of instances, beside a block of sound.
#include "bench/ratioreporter.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace {

constexpr const char* kBlockOf1024 = "instance/a block of 1024";
constexpr double kNanosecondsPerMicrosecond = 1000.0;

std::vector<std::string> partsOf(const std::string& name) {
  std::vector<std::string> parts;
  std::istringstream stream(name);
  for (std::string part; std::getline(stream, part, '/');) parts.push_back(part);
  return parts;
}

// Google Benchmark has renamed what says so.
template <typename Run>
bool gaveUp(const Run& run) {
  if constexpr (requires { run.error_occurred; }) {
    return run.error_occurred;
  } else {
    return run.skipped != 0;
  }
}

}  // namespace

bool RatioReporter::ReportContext(const Context& context) {
  PrintBasicContext(&GetErrorStream(), context);
  return true;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (gaveUp(run) || run.run_type == Run::RT_Aggregate || run.iterations == 0) continue;
    const std::string& name = run.run_name.function_name;
    if (!times.contains(name)) order.push_back(name);
    times[name].push_back(run.cpu_accumulated_time * 1e9 / static_cast<double>(run.iterations));
  }
}

void RatioReporter::Finalize() {
  std::sort(order.begin(), order.end());
  printInstances();
}

double RatioReporter::median(const std::string& name) const {
  const auto found = times.find(name);
  if (found == times.end()) return 0.0;
  std::vector<double> sorted = found->second;
  std::sort(sorted.begin(), sorted.end());
  return sorted[sorted.size() / 2];
}

void RatioReporter::printInstances() {
  const double block = median(kBlockOf1024);
  if (block <= 0.0) return;
  std::printf(
      "\nInstances: time as a multiple of one settled block of 1024 frames in single "
      "precision\n\n");
  std::printf("| operation       | ratio |      µs |\n|-----------------|------:|--------:|\n");
  for (const std::string& name : order) {
    const auto parts = partsOf(name);
    const double time = median(name);
    std::printf("| %-15s | %5.2f | %7.2f |\n", parts.back().c_str(), time / block,
                time / kNanosecondsPerMicrosecond);
  }
}
