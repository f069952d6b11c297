#pragma once

#include "Core/Api.h"

#include <string>
#include <string_view>

namespace Tervan::Conf {

// In libavutil's order, so that the numbers read naturally to an FFmpeg user.
enum SampleFormats {
    SAMPLE_FMT_NONE = -1,
    SAMPLE_FMT_U8 = 0,
    SAMPLE_FMT_S16,
    SAMPLE_FMT_S32,
    SAMPLE_FMT_FLT,
    SAMPLE_FMT_DBL,
    SAMPLE_FMT_U8P,
    SAMPLE_FMT_S16P,
    SAMPLE_FMT_S32P,
    SAMPLE_FMT_FLTP,
    SAMPLE_FMT_DBLP,
    SAMPLE_FMT_S64,
    SAMPLE_FMT_S64P,
};

// One sample format: enumerator, bits per sample, libavutil name, whether it is
// planar, and its packed/planar counterpart.
struct TERVAN_API SampleFmtRecord {
    SampleFormats format;
    int bitsPerSample;
    std::string_view name;
    bool planar;
    SampleFormats counterpart;

    // Each throws FormatException for a format it does not know.
    static const SampleFmtRecord& Find(SampleFormats format);
    static const SampleFmtRecord& Find(const std::string& name);
};

}  // namespace Tervan::Conf
