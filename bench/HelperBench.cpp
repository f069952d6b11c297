// What a host pays for asking the helpers: lookups, the three per-helper queries, a
// whole planned MP4 job (from one and from two threads), and the tool's check and fix.
#include "Benchmarks.h"
#include "Conf/DataHelpers/DataHelpers.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"
#include "JobCheck.h"
#include "JobFix.h"
#include "Workload.h"

#include <benchmark/benchmark.h>

#include <string>

namespace Tervan::Bench {
namespace {

using Conf::IDataHelper;
using Conf::IPreset;

struct Subject {
    const char* label;
    const std::string& type;
    const std::string& name;
};

// label, registry type key, helper name
const Subject SUBJECTS[] = {
    {"h264", IPreset::KEY_FILTER_VIDEO_CODEC, Conf::IFormatCodecVideo::CODEC_ID_H264},
    {"aac", IPreset::KEY_FILTER_AUDIO_CODEC, Conf::IFormatCodecAudio::CODEC_ID_AAC},
    {"vorbis", IPreset::KEY_FILTER_AUDIO_CODEC, Conf::IFormatCodecAudio::CODEC_ID_VORBIS},
    {"mp4", IPreset::KEY_FORMAT, Conf::IFormatFile::FORMAT_MP4},
    {"dvd", IPreset::KEY_FORMAT, Conf::IFormatFile::FORMAT_DVD},
};

void Lookup(benchmark::State& state) {
    for (auto _ : state) {
        auto helper = CreateDataHelper(IPreset::KEY_FILTER_VIDEO_CODEC, Conf::IFormatCodecVideo::CODEC_ID_H264);
        benchmark::DoNotOptimize(helper);
    }
}

void GetDefaults(benchmark::State& state, const Subject& subject) {
    const auto helper = CreateDataHelper(subject.type, subject.name);
    for (auto _ : state) {
        Core::Property defaults = helper->GetDefaults();
        benchmark::DoNotOptimize(defaults);
    }
}

// GetConstraints or GetValidationRules into a fresh container, as a host asks.
template <class Out, void (IDataHelper::*Query)(Out&) const>
void Fill(benchmark::State& state, const Subject& subject) {
    const auto helper = CreateDataHelper(subject.type, subject.name);
    for (auto _ : state) {
        Out out;
        ((*helper).*Query)(out);
        benchmark::DoNotOptimize(out);
    }
}

void TypicalMp4Request(benchmark::State& state) {
    const auto dialog = DialogConsumer::Create();
    if (PlanMp4Job(dialog).brokenRules != 0) {
        state.SkipWithError("the planned MP4 job breaks a rule");
        return;
    }
    for (auto _ : state) {
        PlanResult plan = PlanMp4Job(dialog);
        benchmark::DoNotOptimize(plan);
    }
    state.SetItemsProcessed(state.iterations());
}

// The example job once repaired: valid, so both checks below find nothing.
Job::Job ValidJob() {
    Job::Job job = LoadExampleJob("examples/jobs/mp4-mp3-11025.json");
    Job::FixJob(job);
    return job;
}

void CheckValidJob(benchmark::State& state) {
    Job::Job job = ValidJob();
    if (CheckJobSettings(job.formatName, job.settings) != 0 || !Job::CheckJob(job, false).empty()) {
        state.SkipWithError("the repaired example job is not valid");
        return;
    }
    const Job::Job broken = LoadExampleJob("examples/jobs/mp4-mp3-11025.json");
    if (CheckJobSettings(broken.formatName, broken.settings) == 0) {
        state.SkipWithError("the check misses the example job's violation");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(CheckJobSettings(job.formatName, job.settings));
    }
}

// The tool's check also builds a reportable record (path, label, description) for
// every site it visits.
void ToolCheckValidJob(benchmark::State& state) {
    Job::Job job = ValidJob();
    for (auto _ : state) {
        auto violations = Job::CheckJob(job, false);
        benchmark::DoNotOptimize(violations);
    }
}

void FixBrokenJob(benchmark::State& state) {
    const Job::Job broken = LoadExampleJob("examples/jobs/broken/dvd-audio.json");
    Job::Job probe = broken;
    const auto violations = Job::CheckJob(probe, false).size();
    if (violations < 2 || !Job::FixJob(probe).remaining.empty()) {
        state.SkipWithError("the broken example no longer has several fixable violations");
        return;
    }
    for (auto _ : state) {
        Job::Job job = broken;
        Job::FixReport report = Job::FixJob(job);
        benchmark::DoNotOptimize(report);
    }
    state.counters["violations"] = static_cast<double>(violations);
}

}  // namespace

void RegisterHelperBenchmarks() {
    benchmark::RegisterBenchmark(LOOKUP, Lookup);
    for (const Subject& subject : SUBJECTS) {
        const std::string suffix = std::string("/") + subject.label;
        benchmark::RegisterBenchmark((GET_DEFAULTS + suffix).c_str(), GetDefaults, subject);
        benchmark::RegisterBenchmark((GET_CONSTRAINTS + suffix).c_str(),
                                     Fill<IDataHelper::Constraints, &IDataHelper::GetConstraints>, subject);
        benchmark::RegisterBenchmark((GET_VALIDATION_RULES + suffix).c_str(),
                                     Fill<IDataHelper::ValidationRules, &IDataHelper::GetValidationRules>, subject);
    }
    benchmark::RegisterBenchmark(TYPICAL_MP4_REQUEST, TypicalMp4Request)->Threads(1)->Threads(2)->UseRealTime();
    benchmark::RegisterBenchmark(CHECK_VALID_JOB, CheckValidJob);
    benchmark::RegisterBenchmark(TOOL_CHECK_VALID_JOB, ToolCheckValidJob);
    benchmark::RegisterBenchmark(FIX_BROKEN_JOB, FixBrokenJob);
}

}  // namespace Tervan::Bench
