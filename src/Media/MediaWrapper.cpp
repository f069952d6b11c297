#include "Media/MediaWrapper.h"

#include "Conf/ConfException.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
#include <libavutil/samplefmt.h>
}

#include <algorithm>
#include <array>
#include <iterator>

namespace Tervan::Conf {
namespace {

using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

// Columns: codec identifier of the vocabulary, libavcodec's id for it (the descriptor
// of that name; "auto" has none). libavcodec keeps its ids within a major version.
// Asking libavcodec by name compares the name of every descriptor before the match,
// and those names lie scattered over its read-only data: reading them all makes some
// 400 KiB resident at load.
struct KnownCodec {
    const std::string* textId;
    AVCodecID codecId;
};
const KnownCodec kKnownCodecs[] = {
    {&IFormatCodec::CODEC_ID_AUTO, AV_CODEC_ID_NONE},
    {&A::CODEC_ID_AAC, AV_CODEC_ID_AAC},
    {&A::CODEC_ID_AC3, AV_CODEC_ID_AC3},
    {&A::CODEC_ID_ALAC, AV_CODEC_ID_ALAC},
    {&A::CODEC_ID_AMR_NB, AV_CODEC_ID_AMR_NB},
    {&A::CODEC_ID_DTS, AV_CODEC_ID_DTS},
    {&A::CODEC_ID_FLAC, AV_CODEC_ID_FLAC},
    {&A::CODEC_ID_MP2, AV_CODEC_ID_MP2},
    {&A::CODEC_ID_MP3, AV_CODEC_ID_MP3},
    {&A::CODEC_ID_VORBIS, AV_CODEC_ID_VORBIS},
    {&A::CODEC_ID_WMAV2, AV_CODEC_ID_WMAV2},
    {&A::CODEC_ID_PCM_S8, AV_CODEC_ID_PCM_S8},
    {&A::CODEC_ID_PCM_U8, AV_CODEC_ID_PCM_U8},
    {&A::CODEC_ID_PCM_S16BE, AV_CODEC_ID_PCM_S16BE},
    {&A::CODEC_ID_PCM_S16LE, AV_CODEC_ID_PCM_S16LE},
    {&A::CODEC_ID_PCM_S24BE, AV_CODEC_ID_PCM_S24BE},
    {&A::CODEC_ID_PCM_S24LE, AV_CODEC_ID_PCM_S24LE},
    {&A::CODEC_ID_PCM_S32BE, AV_CODEC_ID_PCM_S32BE},
    {&A::CODEC_ID_PCM_S32LE, AV_CODEC_ID_PCM_S32LE},
    {&A::CODEC_ID_PCM_U16BE, AV_CODEC_ID_PCM_U16BE},
    {&A::CODEC_ID_PCM_U16LE, AV_CODEC_ID_PCM_U16LE},
    {&A::CODEC_ID_PCM_U24BE, AV_CODEC_ID_PCM_U24BE},
    {&A::CODEC_ID_PCM_U24LE, AV_CODEC_ID_PCM_U24LE},
    {&A::CODEC_ID_PCM_U32BE, AV_CODEC_ID_PCM_U32BE},
    {&A::CODEC_ID_PCM_U32LE, AV_CODEC_ID_PCM_U32LE},
    {&V::CODEC_ID_BMP, AV_CODEC_ID_BMP},
    {&V::CODEC_ID_DPX, AV_CODEC_ID_DPX},
    {&V::CODEC_ID_DVVIDEO, AV_CODEC_ID_DVVIDEO},
    {&V::CODEC_ID_FLV1, AV_CODEC_ID_FLV1},
    {&V::CODEC_ID_GIF, AV_CODEC_ID_GIF},
    {&V::CODEC_ID_H263, AV_CODEC_ID_H263},
    {&V::CODEC_ID_H264, AV_CODEC_ID_H264},
    {&V::CODEC_ID_H265, AV_CODEC_ID_HEVC},
    {&V::CODEC_ID_JPEG2000, AV_CODEC_ID_JPEG2000},
    {&V::CODEC_ID_JPEGLS, AV_CODEC_ID_JPEGLS},
    {&V::CODEC_ID_MJPEG, AV_CODEC_ID_MJPEG},
    {&V::CODEC_ID_MPEG1VIDEO, AV_CODEC_ID_MPEG1VIDEO},
    {&V::CODEC_ID_MPEG2VIDEO, AV_CODEC_ID_MPEG2VIDEO},
    {&V::CODEC_ID_MPEG4, AV_CODEC_ID_MPEG4},
    {&V::CODEC_ID_PAM, AV_CODEC_ID_PAM},
    {&V::CODEC_ID_PBM, AV_CODEC_ID_PBM},
    {&V::CODEC_ID_PCX, AV_CODEC_ID_PCX},
    {&V::CODEC_ID_PGM, AV_CODEC_ID_PGM},
    {&V::CODEC_ID_PGMYUV, AV_CODEC_ID_PGMYUV},
    {&V::CODEC_ID_PNG, AV_CODEC_ID_PNG},
    {&V::CODEC_ID_PPM, AV_CODEC_ID_PPM},
    {&V::CODEC_ID_PRORES, AV_CODEC_ID_PRORES},
    {&V::CODEC_ID_QTRLE, AV_CODEC_ID_QTRLE},
    {&V::CODEC_ID_SGI, AV_CODEC_ID_SGI},
    {&V::CODEC_ID_TARGA, AV_CODEC_ID_TARGA},
    {&V::CODEC_ID_THEORA, AV_CODEC_ID_THEORA},
    {&V::CODEC_ID_TIFF, AV_CODEC_ID_TIFF},
    {&V::CODEC_ID_VP8, AV_CODEC_ID_VP8},
    {&V::CODEC_ID_VP9, AV_CODEC_ID_VP9},
    {&V::CODEC_ID_WMV2, AV_CODEC_ID_WMV2},
    {&V::CODEC_ID_WMV3, AV_CODEC_ID_WMV3},
    {&V::CODEC_ID_XBM, AV_CODEC_ID_XBM},
    {&V::CODEC_ID_XWD, AV_CODEC_ID_XWD},
};

}  // namespace

int CodecIDFromTextID(const std::string& textId) {
    const auto* known = std::find_if(std::begin(kKnownCodecs), std::end(kKnownCodecs),
                                     [&textId](const KnownCodec& row) { return *row.textId == textId; });
    if (known != std::end(kKnownCodecs)) {
        return known->codecId;
    }
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get_by_name(textId.c_str());
    return descriptor == nullptr ? AV_CODEC_ID_NONE : descriptor->id;
}

}  // namespace Tervan::Conf

namespace Tervan::Media {
namespace {

// Columns: codec id, preferred encoder.
struct PreferredEncoder {
    AVCodecID codecId;
    const char* encoder;
};
constexpr std::array<PreferredEncoder, 8> kPreferredEncoders = {{
    {AV_CODEC_ID_H264, "libx264"},
    {AV_CODEC_ID_HEVC, "libx265"},
    {AV_CODEC_ID_MP3, "libmp3lame"},
    {AV_CODEC_ID_VORBIS, "libvorbis"},
    {AV_CODEC_ID_THEORA, "libtheora"},
    {AV_CODEC_ID_VP8, "libvpx"},
    {AV_CODEC_ID_VP9, "libvpx-vp9"},
    {AV_CODEC_ID_AMR_NB, "libopencore_amrnb"},
}};

template <class T, class Terminated>
std::vector<T> Collect(const T* list, Terminated atEnd) {
    std::vector<T> out;
    for (; list != nullptr && !atEnd(*list); ++list) {
        out.push_back(*list);
    }
    return out;
}

#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(61, 13, 100)
// 7.1 deprecates the per-field lists in favour of one query.
template <class T>
const T* SupportedConfig(const AVCodec* codec, AVCodecConfig config) {
    const void* values = nullptr;
    int count = 0;
    if (avcodec_get_supported_config(nullptr, codec, config, 0, &values, &count) < 0) {
        return nullptr;
    }
    return static_cast<const T*>(values);
}
#endif

const AVRational* FrameRates(const AVCodec* codec) {
#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(61, 13, 100)
    return SupportedConfig<AVRational>(codec, AV_CODEC_CONFIG_FRAME_RATE);
#else
    return codec->supported_framerates;
#endif
}

const int* SampleRates(const AVCodec* codec) {
#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(61, 13, 100)
    return SupportedConfig<int>(codec, AV_CODEC_CONFIG_SAMPLE_RATE);
#else
    return codec->supported_samplerates;
#endif
}

const AVSampleFormat* SampleFormats(const AVCodec* codec) {
#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(61, 13, 100)
    return SupportedConfig<AVSampleFormat>(codec, AV_CODEC_CONFIG_SAMPLE_FORMAT);
#else
    return codec->sample_fmts;
#endif
}

// avcodec_find_encoder_by_name compares the name of every codec before the match, and
// those names lie scattered over libavcodec's read-only data: reading them all makes
// nearly a megabyte resident. Encoder names are unique, so looking only at encoders of
// the expected id finds the same one while reading just their names; the full search
// remains for a name registered under another id, or not at all.
const AVCodec* FindEncoderByName(const std::string& name, int codecId) {
    void* opaque = nullptr;
    while (const AVCodec* codec = av_codec_iterate(&opaque)) {
        if (codec->id == codecId && av_codec_is_encoder(codec) != 0 && name == codec->name) {
            return codec;
        }
    }
    return avcodec_find_encoder_by_name(name.c_str());
}

std::vector<std::uint64_t> ChannelMasks(const AVCodec* codec) {
#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(61, 13, 100)
    const AVChannelLayout* layouts = SupportedConfig<AVChannelLayout>(codec, AV_CODEC_CONFIG_CHANNEL_LAYOUT);
#elif LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(59, 24, 100)
    const AVChannelLayout* layouts = codec->ch_layouts;
#else
    return Collect(codec->channel_layouts, [](std::uint64_t mask) { return mask == 0; });
#endif
#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(59, 24, 100)
    std::vector<std::uint64_t> masks;
    for (const AVChannelLayout& layout :
         Collect(layouts, [](const AVChannelLayout& l) { return l.nb_channels == 0; })) {
        // Only native-order layouts have a mask; the others cannot be named by our records.
        if (layout.order == AV_CHANNEL_ORDER_NATIVE) {
            masks.push_back(layout.u.mask);
        }
    }
    return masks;
#endif
}

}  // namespace

std::string EncoderFromCodec(int codecId) {
    for (const PreferredEncoder& row : kPreferredEncoders) {
        if (row.codecId == codecId) {
            return row.encoder;
        }
    }
    return {};
}

Conf::SampleFormats SampleFormatTervanFromFFMPEG(int sampleFormat) {
    const char* name = av_get_sample_fmt_name(static_cast<AVSampleFormat>(sampleFormat));
    if (name == nullptr) {
        return Conf::SAMPLE_FMT_NONE;
    }
    try {
        return Conf::SampleFmtRecord::Find(std::string(name)).format;
    } catch (const Conf::FormatException&) {
        return Conf::SAMPLE_FMT_NONE;
    }
}

Conf::ChannelLayout ChannelLayoutTervanFromFFMPEG(std::uint64_t mask) {
    const Conf::LayoutRecord* record = Conf::LayoutRecord::FindByMask(mask);
    return record == nullptr ? Conf::CH_LAYOUT_UNKNOWN : record->layout;
}

bool ChannelLayoutFFMPEGIsSupported(std::uint64_t mask) {
    return Conf::LayoutRecord::FindByMask(mask) != nullptr;
}

std::optional<EncoderDescription> FindEncoder(const std::string& encoderName, int codecId) {
    const AVCodec* codec = encoderName.empty() ? avcodec_find_encoder(static_cast<AVCodecID>(codecId))
                                               : FindEncoderByName(encoderName, codecId);
    if (codec == nullptr) {
        return std::nullopt;
    }
    EncoderDescription description;
    description.name = codec->name;
    description.codecId = codec->id;
    for (const AVRational& rate : Collect(FrameRates(codec), [](const AVRational& r) { return r.num == 0; })) {
        description.frameRates.emplace_back(rate.num, rate.den);
    }
    for (AVSampleFormat format :
         Collect(SampleFormats(codec), [](AVSampleFormat f) { return f == AV_SAMPLE_FMT_NONE; })) {
        description.sampleFormats.push_back(format);
    }
    description.sampleRates = Collect(SampleRates(codec), [](int rate) { return rate == 0; });
    description.channelLayouts = ChannelMasks(codec);
    return description;
}

std::string LibavcodecVersion() {
    const unsigned version = avcodec_version();
    return std::to_string(AV_VERSION_MAJOR(version)) + "." + std::to_string(AV_VERSION_MINOR(version)) + "." +
           std::to_string(AV_VERSION_MICRO(version));
}

}  // namespace Tervan::Media
