// Gathers all runs of the benchmarks and prints them at the end as ratios within that one run.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Names are paths: instance/<operation>. Processor time, the median of all repetitions.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  void printInstances();
  double median(const std::string& name) const;  // ns an iteration; 0 where it did not run

  std::map<std::string, std::vector<double>> times;  // ns an iteration, one for each repetition
  std::vector<std::string> order;                    // names as they were first seen
};
