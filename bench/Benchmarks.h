#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

// The benchmarks' names, shared by the files that register them and the reporter
// that compares their medians with the targets, and the median of measures taken pair by pair.
namespace Tervan::Bench {

inline constexpr const char* LOOKUP = "CreateDataHelper";
inline constexpr const char* GET_DEFAULTS = "GetDefaults";
inline constexpr const char* GET_CONSTRAINTS = "GetConstraints";
inline constexpr const char* GET_VALIDATION_RULES = "GetValidationRules";
inline constexpr const char* TYPICAL_MP4_REQUEST = "TypicalMp4Request";
inline constexpr const char* CHECK_VALID_JOB = "CheckValidJob";
inline constexpr const char* TOOL_CHECK_VALID_JOB = "ToolCheckValidJob";
inline constexpr const char* FIX_BROKEN_JOB = "FixBrokenJob";
// Two threads' throughput over one thread's, from alternating bursts of typical requests.
inline constexpr const char* THREAD_SCALING = "ThreadScaling";
inline constexpr const char* SCALING_RATIO = "ratio";
inline constexpr const char* TRIAL_OPEN_AAC = "TrialOpen/aac";
inline constexpr const char* TRIAL_OPEN_X264 = "TrialOpen/libx264";
// The same, each attempt on fresh pages, as a first attempt in a process.
inline constexpr const char* TRIAL_OPEN_AAC_FRESH = "TrialOpen/aac/fresh-pages";
inline constexpr const char* TRIAL_OPEN_X264_FRESH = "TrialOpen/libx264/fresh-pages";
inline constexpr const char* LOAD_AVCODEC = "Load/libavcodec";
// libavcodec once it has looked up an encoder: what any encoding host pays first.
inline constexpr const char* LOAD_AVCODEC_LOOKUP = "Load/libavcodec+lookup";
inline constexpr const char* LOAD_DATAHELPERS = "Load/datahelpers";
// The library loaded into a process that has libavcodec loaded and an encoder looked up:
// what the library adds, measured directly rather than as a difference of two loads.
inline constexpr const char* LOAD_DATAHELPERS_ADDED = "Load/datahelpers-after-libavcodec";
// Both loads above in turn, pair by pair: what the library adds over libavcodec's own load.
inline constexpr const char* LOAD_PAIRED = "Load/datahelpers-over-libavcodec";
// The load benchmarks report the resident memory a fresh process gained; the paired one
// the medians of the pairs' differences, in milliseconds and KiB.
inline constexpr const char* RESIDENT_KIB = "resident_KiB";
inline constexpr const char* ADDED_MS = "added_ms";

inline double Median(std::vector<double> values) {
    if (values.empty()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void RegisterHelperBenchmarks();
void RegisterTrialOpenBenchmarks();
void RegisterLoadBenchmarks();
void RegisterScalingBenchmark();

}  // namespace Tervan::Bench
