#include "TargetReporter.h"

#include "Benchmarks.h"

#include <cstdio>
#include <functional>
#include <optional>
#include <unistd.h>

namespace Tervan::Bench {
namespace {

std::string Key(const benchmark::BenchmarkReporter::Run& run) {
    std::string key = run.run_name.function_name;
    if (!run.run_name.threads.empty()) {
        key += "/" + run.run_name.threads;
    }
    return key;
}

struct Target {
    const char* what;
    const char* unit;
    double limit;
    bool atMost;  // else at least
    // The measured figure, or nothing when a benchmark it needs did not run.
    std::function<std::optional<double>(const std::function<std::optional<double>(const char*)>& ns,
                                        const std::function<std::optional<double>(const char*, const char*)>& counter)>
        measure;
};

std::optional<double> Quotient(std::optional<double> numerator, std::optional<double> denominator) {
    if (!numerator || !denominator || *denominator <= 0) {
        return std::nullopt;
    }
    return *numerator / *denominator;
}

const std::string THREADS_1 = std::string(TYPICAL_MP4_REQUEST) + "/threads:1";
const std::string CONSTRAINTS_H264 = std::string(GET_CONSTRAINTS) + "/h264";

// Trial-opening both of the job's encoders against one typical request.
template <class Ns>
std::optional<double> TrialOpenRatio(const Ns& ns, const char* aacName, const char* x264Name) {
    const auto aac = ns(aacName);
    const auto x264 = ns(x264Name);
    return Quotient(aac && x264 ? std::optional<double>(*aac + *x264) : std::nullopt, ns(THREADS_1.c_str()));
}

// what, unit, limit, at most?, measure
const Target TARGETS[] = {
    {"typical MP4 request", "us", 20, true, [](auto& ns, auto&) { return Quotient(ns(THREADS_1.c_str()), 1e3); }},
    {"check of a valid job", "us", 10, true, [](auto& ns, auto&) { return Quotient(ns(CHECK_VALID_JOB), 1e3); }},
    {"GetConstraints of H.264", "us", 2, true,
     [](auto& ns, auto&) { return Quotient(ns(CONSTRAINTS_H264.c_str()), 1e3); }},
    {"CreateDataHelper lookup", "ns", 100, true, [](auto& ns, auto&) { return ns(LOOKUP); }},
    {"trial-opening AAC + libx264 / typical request", "x", 300, false,
     [](auto& ns, auto&) { return TrialOpenRatio(ns, TRIAL_OPEN_AAC, TRIAL_OPEN_X264); }},
    {"  the same, each attempt on fresh pages", "x", 300, false,
     [](auto& ns, auto&) { return TrialOpenRatio(ns, TRIAL_OPEN_AAC_FRESH, TRIAL_OPEN_X264_FRESH); }},
    {"load time over libavcodec's", "ms", 2, true, [](auto&, auto& counter) { return counter(LOAD_PAIRED, ADDED_MS); }},
    {"resident memory over libavcodec's", "KiB", 1024, true,
     [](auto&, auto& counter) { return counter(LOAD_PAIRED, RESIDENT_KIB); }},
    {"throughput of 2 threads / 1 thread", "x", 1.8, false,
     [](auto&, auto& counter) { return counter(THREAD_SCALING, SCALING_RATIO); }},
};

}  // namespace

TargetReporter::TargetReporter() : ConsoleReporter(isatty(STDOUT_FILENO) != 0 ? OO_Defaults : OO_Tabular) {}

void TargetReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            ++m_errors;
            continue;
        }
        const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        if (run.run_type == Run::RT_Aggregate && !median) {
            continue;
        }
        Figures& figures = m_figures[Key(run)];
        if (figures.median && !median) {
            continue;
        }
        figures.median = median;
        figures.nanoseconds = run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9;
        for (const auto& [name, counter] : run.counters) {
            figures.counters[name] = counter.value;
        }
    }
    ConsoleReporter::ReportRuns(runs);
}

const TargetReporter::Figures* TargetReporter::Find(const std::string& name) const {
    const auto found = m_figures.find(name);
    return found == m_figures.end() ? nullptr : &found->second;
}

void TargetReporter::Finalize() {
    ConsoleReporter::Finalize();
    const auto ns = [this](const char* name) -> std::optional<double> {
        const Figures* figures = Find(name);
        return figures != nullptr ? std::optional<double>(figures->nanoseconds) : std::nullopt;
    };
    const auto counter = [this](const char* name, const char* counterName) -> std::optional<double> {
        const Figures* figures = Find(name);
        if (figures == nullptr || figures->counters.count(counterName) == 0) {
            return std::nullopt;
        }
        return figures->counters.at(counterName);
    };
    std::FILE* out = stdout;
    std::fprintf(out, "\n%-48s %12s %14s  %s\n", "Target", "measured", "target", "verdict");
    for (const Target& target : TARGETS) {
        const std::optional<double> measured = target.measure(ns, counter);
        char limit[32];
        std::snprintf(limit, sizeof limit, "%s %g %s", target.atMost ? "<=" : ">=", target.limit, target.unit);
        if (!measured) {
            std::fprintf(out, "%-48s %12s %14s  %s\n", target.what, "-", limit, "not measured");
            continue;
        }
        const bool met = target.atMost ? *measured <= target.limit : *measured >= target.limit;
        std::fprintf(out, "%-48s %9.3f %-2s %14s  %s\n", target.what, *measured, target.unit, limit,
                     met ? "met" : "MISSED");
    }
    std::fflush(out);
}

}  // namespace Tervan::Bench
