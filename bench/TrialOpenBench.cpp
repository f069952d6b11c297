// The alternative a host has without the helpers: open the encoder with the job's
// settings and see whether it refuses them.
#include "Benchmarks.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"
#include "Workload.h"

#include <benchmark/benchmark.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
#include <libavutil/dict.h>
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <malloc.h>
#include <string>

namespace Tervan::Bench {
namespace {

using Conf::IFormatCodec;
using Conf::IFormatCodecAudio;
using Conf::IFormatCodecVideo;
using Conf::IPreset;

// The codec node of the planned MP4 job's stream of that type.
Core::Property PlannedCodec(const std::string& type) {
    const PlanResult plan = PlanMp4Job(DialogConsumer::Create());
    for (const Core::Property& stream : plan.settings[IPreset::KEY_STREAMS]) {
        if (stream[IPreset::KEY_TYPE_ID].GetString() == type) {
            return stream[type == IPreset::STREAM_TYPE_AUDIO ? IPreset::KEY_FILTER_AUDIO_CODEC
                                                             : IPreset::KEY_FILTER_VIDEO_CODEC];
        }
    }
    return Core::Property();
}

std::string ErrorText(int code) {
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return text;
}

// The codec node's encoder options under libavcodec's names, as a host hands them to
// avcodec_open2 (the job names the tune after its encoder, libx264 calls it "tune").
void SetEncoderOptions(const Core::Property& codec, AVDictionary** options) {
    for (const Core::Property& option : codec[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE]) {
        const char* name = option.GetName() == IFormatCodecVideo::TAG_X264_TUNE ? "tune" : option.GetName().c_str();
        av_dict_set(options, name, option.GetString().c_str(), 0);
    }
}

// How an attempt finds the process's memory. The encoders' buffers are large: opened
// again and again with nothing in between, an encoder gets the pages its last attempt
// freed, or not, as the allocator's state in this process has it (AAC: 0.1 or 3 ms);
// a first attempt, or one after the host's other work has taken that memory back,
// gets fresh pages from the system.
enum class Attempt { REPEATED, FRESH_PAGES };

// Opens and frees one encoder context per iteration; configure sets the job's settings.
template <class Configure>
void TrialOpen(benchmark::State& state, Attempt attempt, const char* encoderName, Configure configure) {
    const AVCodec* encoder = avcodec_find_encoder_by_name(encoderName);
    if (encoder == nullptr) {
        state.SkipWithError((std::string("encoder not built into libavcodec: ") + encoderName).c_str());
        return;
    }
    for (auto _ : state) {
        if (attempt == Attempt::FRESH_PAGES) {
            state.PauseTiming();
            // The last attempt's buffers go back to the system with the rest of the free memory.
            malloc_trim(0);
            state.ResumeTiming();
        }
        AVCodecContext* context = avcodec_alloc_context3(encoder);
        AVDictionary* options = nullptr;
        configure(*context, &options);
        const int opened = avcodec_open2(context, encoder, &options);
        // avcodec_open2 hands back the options it did not take: the job's would not all apply.
        const AVDictionaryEntry* unused = av_dict_get(options, "", nullptr, AV_DICT_IGNORE_SUFFIX);
        const std::string unusedName = unused != nullptr ? unused->key : "";
        av_dict_free(&options);
        avcodec_free_context(&context);
        if (opened < 0) {
            state.SkipWithError(("avcodec_open2 refused the job's settings: " + ErrorText(opened)).c_str());
            return;
        }
        if (!unusedName.empty()) {
            state.SkipWithError(("the encoder does not know the job's option " + unusedName).c_str());
            return;
        }
    }
}

void TrialOpenAac(benchmark::State& state, Attempt attempt) {
    const Core::Property codec = PlannedCodec(IPreset::STREAM_TYPE_AUDIO);
    if (codec[IFormatCodec::TAG_CODEC_ID].GetString() != IFormatCodecAudio::CODEC_ID_AAC) {
        state.SkipWithError("the planned MP4 job's audio is not AAC");
        return;
    }
    TrialOpen(state, attempt, "aac", [&](AVCodecContext& context, AVDictionary** options) {
        context.sample_rate = static_cast<int>(codec[IFormatCodecAudio::TAG_SAMPLE_RATE].GetInt64());
        context.sample_fmt = av_get_sample_fmt(codec[IFormatCodecAudio::TAG_SAMPLE_FORMAT].GetString().c_str());
        av_channel_layout_from_string(&context.ch_layout, codec[IFormatCodecAudio::TAG_LAYOUT].GetString().c_str());
        context.bit_rate = codec[IFormatCodec::TAG_BITRATE].GetInt64();
        context.time_base = AVRational{1, context.sample_rate};
        SetEncoderOptions(codec, options);
    });
}

void TrialOpenX264(benchmark::State& state, Attempt attempt) {
    const Core::Property codec = PlannedCodec(IPreset::STREAM_TYPE_VIDEO);
    if (codec[IFormatCodec::TAG_CODEC_ID].GetString() != IFormatCodecVideo::CODEC_ID_H264) {
        state.SkipWithError("the planned MP4 job's video is not H.264");
        return;
    }
    const auto rate = codec[IFormatCodecVideo::TAG_FPS].GetRatio();
    TrialOpen(state, attempt, "libx264", [&](AVCodecContext& context, AVDictionary** options) {
        context.width = static_cast<int>(codec[IFormatCodecVideo::TAG_WIDTH].GetInt64());
        context.height = static_cast<int>(codec[IFormatCodecVideo::TAG_HEIGHT].GetInt64());
        context.pix_fmt = AV_PIX_FMT_YUV420P;
        context.framerate = AVRational{static_cast<int>(rate.numerator()), static_cast<int>(rate.denominator())};
        context.time_base = av_inv_q(context.framerate);
        context.bit_rate = codec[IFormatCodec::TAG_BITRATE].GetInt64();
        SetEncoderOptions(codec, options);
    });
}

}  // namespace

void RegisterTrialOpenBenchmarks() {
    // Encoders report their settings on every open; the report would drown the figures.
    av_log_set_level(AV_LOG_ERROR);
    benchmark::RegisterBenchmark(TRIAL_OPEN_AAC, TrialOpenAac, Attempt::REPEATED)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(TRIAL_OPEN_X264, TrialOpenX264, Attempt::REPEATED)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(TRIAL_OPEN_AAC_FRESH, TrialOpenAac, Attempt::FRESH_PAGES)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(TRIAL_OPEN_X264_FRESH, TrialOpenX264, Attempt::FRESH_PAGES)
        ->Unit(benchmark::kMicrosecond);
}

}  // namespace Tervan::Bench
