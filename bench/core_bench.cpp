// Everything that can be measured within one process. Benchmarks are named WHAT/WHO/SIZE; .scripts/run-bench
// compares them.

#include <QCoreApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
