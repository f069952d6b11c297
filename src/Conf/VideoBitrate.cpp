#include "Conf/VideoBitrate.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

#include <algorithm>
#include <cmath>

namespace Tervan::Conf {
namespace {

// Columns: codec identifier, bits per pixel. Codecs not listed use kDefaultBitsPerPixel.
// Addresses of the constants are constant-initialised, so the table needs no start-up order.
struct BitsPerPixelRow {
    const std::string* codecId;
    double bitsPerPixel;
};
using V = IFormatCodecVideo;
const BitsPerPixelRow kBitsPerPixel[] = {
    {&V::CODEC_ID_H265, 0.07},      {&V::CODEC_ID_VP9, 0.07},        {&V::CODEC_ID_H264, 0.1},
    {&V::CODEC_ID_VP8, 0.1},        {&V::CODEC_ID_THEORA, 0.12},     {&V::CODEC_ID_MPEG4, 0.15},
    {&V::CODEC_ID_MPEG2VIDEO, 0.2}, {&V::CODEC_ID_MPEG1VIDEO, 0.25}, {&V::CODEC_ID_MJPEG, 1.0},
    {&V::CODEC_ID_PRORES, 1.0},     {&V::CODEC_ID_QTRLE, 1.0},       {&V::CODEC_ID_DVVIDEO, 1.0},
};
constexpr double kDefaultBitsPerPixel = 0.15;
constexpr long long kMinimumBitrate = 100000;

}  // namespace

double GetBitsPerPixel(const std::string& codecId) {
    for (const BitsPerPixelRow& row : kBitsPerPixel) {
        if (codecId == *row.codecId) {
            return row.bitsPerPixel;
        }
    }
    return kDefaultBitsPerPixel;
}

long long GetDefaultVideoBitrate(const std::string& codecId, long long width, long long height, double fps,
                                 int quality) {
    if (width <= 0 || height <= 0 || !(fps > 0.0)) {
        return kMinimumBitrate;
    }
    const double scale = quality < 1
                             ? 1.0
                             : 0.5 + static_cast<double>(std::min<long long>(quality, IFormatCodec::MAX_QUALITY)) /
                                         static_cast<double>(IFormatCodec::MAX_QUALITY);
    const double bitrate =
        GetBitsPerPixel(codecId) * static_cast<double>(width) * static_cast<double>(height) * fps * scale;
    if (bitrate >= static_cast<double>(IFormatCodecVideo::MAX_VIDEO_BITRATE)) {
        return IFormatCodecVideo::MAX_VIDEO_BITRATE;
    }
    return std::max(kMinimumBitrate, static_cast<long long>(std::llround(bitrate)));
}

}  // namespace Tervan::Conf
