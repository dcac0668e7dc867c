// Runs the benchmarks five times in mixed order, unless told otherwise, and prints their ratios.
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/ratioreporter.h"

int main(int argc, char** argv) {
  // Mixed, so that what else the machine does falls on all of them alike.
  // Later arguments win.
  char repetitions[] = "--benchmark_repetitions=5";
  char mixed[] = "--benchmark_enable_random_interleaving=true";
  char shortRuns[] = "--benchmark_min_time=0.05";  // seconds
  std::vector<char*> arguments = {argv[0], repetitions, mixed, shortRuns};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
