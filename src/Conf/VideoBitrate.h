#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Conf {

// A default bitrate from a bits-per-pixel model:
//   bitrate = bpp(codec family) x width x height x fps x scale(quality)
// where bpp is what the family needs for good quality at medium motion (0.07 for
// HEVC and VP9, 0.1 for H.264 and VP8, 0.15 for MPEG-4 class codecs, 0.2 for
// MPEG-2, 0.25 for MPEG-1, 1.0 for intra-only and image codecs), scale(quality) is
// 0.5 + quality / MAX_QUALITY for a quality in 1..MAX_QUALITY and 1 for -1 (no
// quality). The result is clamped to [100000, MAX_VIDEO_BITRATE]; a frame size or
// rate that is not positive gives the lower bound.
TERVAN_API long long GetDefaultVideoBitrate(const std::string& codecId, long long width, long long height, double fps,
                                            int quality);

// The bits per pixel the model uses for a codec.
TERVAN_API double GetBitsPerPixel(const std::string& codecId);

}  // namespace Tervan::Conf
