#include "Benchmarks.h"
#include "TargetReporter.h"

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    Tervan::Bench::RegisterLoadBenchmarks();
    Tervan::Bench::RegisterHelperBenchmarks();
    Tervan::Bench::RegisterScalingBenchmark();
    Tervan::Bench::RegisterTrialOpenBenchmarks();
    Tervan::Bench::TargetReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return reporter.Errors() == 0 ? 0 : 1;
}
