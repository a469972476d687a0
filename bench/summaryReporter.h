#pragma once
// Google Benchmark's console table, then one summary line built from the times it reported: the host's
// figure beside its reference's, as a ratio. Also the `main` of a benchmark that prints one.

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "denseSource.h"

namespace kybench {

// Wall and CPU time of one iteration, in the benchmark's unit.
struct IterationTimes {
    double wall = 0;
    double cpu = 0;
};

class SummaryReporter : public benchmark::ConsoleReporter {
public:
    using Times = std::map<std::string, IterationTimes>;
    explicit SummaryReporter(std::function<void(const Times&)> summary) : summary_(std::move(summary)) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            times_[run.benchmark_name()] = {run.GetAdjustedRealTime(), run.GetAdjustedCPUTime()};
        ConsoleReporter::ReportRuns(runs);
    }
    void Finalize() override {
        ConsoleReporter::Finalize();
        summary_(times_);
    }

private:
    std::function<void(const Times&)> summary_;
    Times times_;
};

// Takes `--triangles=N`, runs the benchmarks the command line selects, then prints the summary.
inline int runWithSummary(int argc, char** argv, std::function<void(const SummaryReporter::Times&)> summary) {
    takeTriangleCount(argc, argv);
    benchmark::Initialize(&argc, argv);
    SummaryReporter reporter(std::move(summary));
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

}  // namespace kybench
