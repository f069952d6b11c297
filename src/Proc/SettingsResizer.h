#pragma once

#include "Conf/FrameInfo.h"
#include "Core/Api.h"

#include <boost/rational.hpp>

#include <cstdint>

namespace Tervan::Proc {

// The resize filter's settings, and the frame it makes of a source frame.
//
// Geometry. Let the source frame be w x h pixels of shape s (its aspect, 1:1 when not
// positive), so its picture has the display aspect D = w * s / h. Every output width
// and height is even and at least 2.
//
// The frame-size mode picks the target:
//   original, half, quarter  w x h divided by 1, 2 or 4 and rounded down to even; the
//                            pixel shape stays s and the resize mode plays no part.
//   custom scale             width (rounded down to even) x the height that keeps D in
//                            pixels of shape `aspect` (rounded to the nearest even);
//                            the resize mode plays no part.
//   custom                   a box of width x height (each rounded down to even) in
//                            pixels of shape `aspect`, filled as the resize mode says.
//
// Resize modes, for a custom box W x H of pixel shape a; the picture's width-to-height
// ratio in those pixels is r = D / a:
//   stretch    W x H, shape a; the picture is distorted to fill the box.
//   letterbox  W x H, shape a; the picture keeps r and the rest is filled with bars.
//   crop       W x H, shape a; the picture keeps r, covers the box and is cut to it.
//   auto       W x H with the shape D * H / W, so the whole picture fills the box
//              without bars or distortion (anamorphic output).
//   smart fit  the largest frame of ratio r inside the box, shape a: the box's width
//              with height W / r, or its height with width r * H (nearest even).
//   up to      the source's own size in pixels of shape a (w * s / a x h) while it fits
//              the box, otherwise as smart fit: never enlarges.
struct TERVAN_API SettingsResizer {
    enum FrameSizeMode : std::int32_t {
        FRAME_SIZE_CUSTOM,
        FRAME_SIZE_CUSTOM_SCALE,
        FRAME_SIZE_ORIGINAL,
        FRAME_SIZE_HALF_ORIGINAL,
        FRAME_SIZE_QUARTER_ORIGINAL,
    };
    enum Mode : std::int32_t {
        MODE_SMART_FIT,
        MODE_UP_TO,
        MODE_LETTERBOX,
        MODE_STRETCH,
        MODE_AUTO,
        MODE_CROP,
    };
    enum Method : std::int32_t {
        METHOD_POINT,
        METHOD_FAST_BILINEAR,
        METHOD_BILINEAR,
        METHOD_BICUBIC,
    };

    FrameSizeMode frameSizeMode = FRAME_SIZE_CUSTOM;
    Mode mode = MODE_SMART_FIT;
    Method method = METHOD_BICUBIC;
    int width = 640;
    int height = 480;
    boost::rational<int> aspect{1, 1};

    // Sides and aspect terms beyond this are refused: the exact geometry multiplies up
    // to four of them in 64 bits.
    static constexpr long long MAX_TERM = 1 << 15;

    // value as a side or aspect term; throws ProcException beyond MAX_TERM either way.
    static int Term(long long value, const char* what);

    // Throws ProcException for a source frame without a positive size, and for a side or
    // aspect term, of the source or of these settings, beyond MAX_TERM.
    Conf::FrameInfo GetOutputFrameSize(const Conf::FrameInfo& source) const;
};

}  // namespace Tervan::Proc
