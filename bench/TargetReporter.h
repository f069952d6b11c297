#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace Tervan::Bench {

// Prints the console report, then each target with the measured median (the mean
// when the run had no repetitions) and whether it was met.
class TargetReporter : public benchmark::ConsoleReporter {
public:
    // Colours only on a terminal, so that saved reports stay plain text.
    TargetReporter();

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    // Benchmarks that skipped with an error: their workload was not what they expect.
    int Errors() const { return m_errors; }

private:
    struct Figures {
        double nanoseconds = 0;
        std::map<std::string, double> counters;
        bool median = false;
    };

    const Figures* Find(const std::string& name) const;

    std::map<std::string, Figures> m_figures;
    int m_errors = 0;
};

}  // namespace Tervan::Bench
