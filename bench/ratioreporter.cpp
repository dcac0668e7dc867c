// The two tables: processing beside the reference, and instances beside a block of sound.
#include "bench/ratioreporter.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace {

constexpr const char* kBlockOf1024 = "process/single/settled/1024/plugin";
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
  printProcessing();
  printInstances();
}

double RatioReporter::median(const std::string& name) const {
  const auto found = times.find(name);
  if (found == times.end()) return 0.0;
  std::vector<double> sorted = found->second;
  std::sort(sorted.begin(), sorted.end());
  return sorted[sorted.size() / 2];
}

void RatioReporter::printProcessing() {
  std::printf(
      "\nProcessing: the plug-in's time as a part of the reference's (1: as fast, below: "
      "faster)\n\n");
  std::printf(
      "| precision | state    | block | ratio | plug-in, ns a frame | reference, ns a frame |\n");
  std::printf(
      "|-----------|----------|------:|------:|--------------------:|----------------------:|\n");
  for (const char* precision : {"single", "double"}) {
    for (const char* state : {"settled", "gliding", "bypassed"}) {
      for (const int block : {16, 64, 256, 1024, 4096}) {
        const std::string name =
            std::string("process/") + precision + '/' + state + '/' + std::to_string(block) + '/';
        const double plugin = median(name + "plugin");
        const double reference = median(name + "reference");
        if (plugin <= 0.0 || reference <= 0.0) continue;
        std::printf("| %-9s | %-8s | %5d | %5.2f | %19.2f | %21.2f |\n", precision, state, block,
                    plugin / reference, plugin / block, reference / block);
      }
    }
  }
}

void RatioReporter::printInstances() {
  const double block = median(kBlockOf1024);
  if (block <= 0.0) return;
  std::printf(
      "\nInstances: time as a multiple of one settled block of 1024 frames in single "
      "precision\n\n");
  std::printf("| operation    | ratio |      µs |\n|--------------|------:|--------:|\n");
  for (const std::string& name : order) {
    const auto parts = partsOf(name);
    if (parts.front() != "instance") continue;
    const double time = median(name);
    std::printf("| %-12s | %5.2f | %7.2f |\n", parts.back().c_str(), time / block,
                time / kNanosecondsPerMicrosecond);
  }
}
