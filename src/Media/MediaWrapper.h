#pragma once

#include "Conf/ChannelLayout.h"
#include "Conf/SampleFormats.h"
#include "Core/Api.h"

#include <boost/rational.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The only door to libavcodec and libavutil: nothing above this layer includes an
// FFmpeg header, and this header includes none, so consumers need no FFmpeg headers.

namespace Tervan::Conf {

// libavcodec's numeric codec id for a codec identifier (a codec descriptor name);
// 0 (AV_CODEC_ID_NONE) for an unknown identifier.
TERVAN_API int CodecIDFromTextID(const std::string& textId);

}  // namespace Tervan::Conf

namespace Tervan::Media {

// The preferred encoder for a codec id, e.g. libx264 for H.264; empty where
// libavcodec's default encoder for the id is the right one.
TERVAN_API std::string EncoderFromCodec(int codecId);

// SAMPLE_FMT_NONE for a format without a record.
TERVAN_API Conf::SampleFormats SampleFormatTervanFromFFMPEG(int sampleFormat);
// Meaningful only where ChannelLayoutFFMPEGIsSupported(mask) is true.
TERVAN_API Conf::ChannelLayout ChannelLayoutTervanFromFFMPEG(std::uint64_t mask);
TERVAN_API bool ChannelLayoutFFMPEGIsSupported(std::uint64_t mask);

// What an encoder declares it accepts, as libavcodec lists it (every list in
// libavcodec's order, complete, empty where the encoder declares nothing).
struct TERVAN_API EncoderDescription {
    std::string name;
    int codecId = 0;
    std::vector<boost::rational<long long>> frameRates;
    std::vector<int> sampleFormats;
    std::vector<int> sampleRates;
    std::vector<std::uint64_t> channelLayouts;  // channel masks of native-order layouts
};

// By name when encoderName is not empty, otherwise libavcodec's default encoder for
// the codec id; nothing when no such encoder is registered.
TERVAN_API std::optional<EncoderDescription> FindEncoder(const std::string& encoderName, int codecId);

// The libavcodec version this library runs against, as "major.minor.micro".
TERVAN_API std::string LibavcodecVersion();

}  // namespace Tervan::Media
