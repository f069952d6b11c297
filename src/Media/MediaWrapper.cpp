#include "Media/MediaWrapper.h"

#include "Conf/ConfException.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
#include <libavutil/samplefmt.h>
}

#include <array>

namespace Tervan::Conf {

int CodecIDFromTextID(const std::string& textId) {
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
                                               : avcodec_find_encoder_by_name(encoderName.c_str());
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
