#pragma once

// The benchmarks' names, shared by the files that register them and the reporter
// that compares their medians with the targets.
namespace Tervan::Bench {

inline constexpr const char* LOOKUP = "CreateDataHelper";
inline constexpr const char* GET_DEFAULTS = "GetDefaults";
inline constexpr const char* GET_CONSTRAINTS = "GetConstraints";
inline constexpr const char* GET_VALIDATION_RULES = "GetValidationRules";
inline constexpr const char* TYPICAL_MP4_REQUEST = "TypicalMp4Request";
inline constexpr const char* CHECK_VALID_JOB = "CheckValidJob";
inline constexpr const char* TOOL_CHECK_VALID_JOB = "ToolCheckValidJob";
inline constexpr const char* FIX_BROKEN_JOB = "FixBrokenJob";
inline constexpr const char* TRIAL_OPEN_AAC = "TrialOpen/aac";
inline constexpr const char* TRIAL_OPEN_X264 = "TrialOpen/libx264";
inline constexpr const char* LOAD_AVCODEC = "Load/libavcodec";
// libavcodec once it has looked up an encoder: what any encoding host pays first.
inline constexpr const char* LOAD_AVCODEC_LOOKUP = "Load/libavcodec+lookup";
inline constexpr const char* LOAD_DATAHELPERS = "Load/datahelpers";
// The library loaded into a process that has libavcodec loaded and an encoder looked up:
// what the library adds, measured directly rather than as a difference of two loads.
inline constexpr const char* LOAD_DATAHELPERS_ADDED = "Load/datahelpers-after-libavcodec";
// The load benchmarks report the resident memory a fresh process gained.
inline constexpr const char* RESIDENT_KIB = "resident_KiB";

void RegisterHelperBenchmarks();
void RegisterTrialOpenBenchmarks();
void RegisterLoadBenchmarks();

}  // namespace Tervan::Bench
