#pragma once

#include "Core/Api.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Tervan::Conf {

enum ChannelLayout {
    CH_LAYOUT_UNKNOWN = 0,
    CH_LAYOUT_MONO = 1,
    CH_LAYOUT_STEREO = 2,
    CH_LAYOUT_2POINT1 = 3,
    CH_LAYOUT_2_1 = 4,
    CH_LAYOUT_QUAD = 5,
    CH_LAYOUT_2_2 = 6,
    CH_LAYOUT_5POINT0_BACK = 7,
    CH_LAYOUT_5POINT0 = 8,
    CH_LAYOUT_5POINT1_BACK = 9,
    CH_LAYOUT_5POINT1 = 10,
    CH_LAYOUT_7POINT1 = 11,
};

// One channel layout: its enumerator, channel count, libavutil name and libavutil
// channel mask. The count is derived from the mask.
struct TERVAN_API LayoutRecord {
    ChannelLayout layout;
    int channels;
    std::string_view name;
    std::uint64_t mask;

    // Each throws FormatException for a layout it does not know. By channel count,
    // the first record of that count in enumerator order.
    static const LayoutRecord& Find(ChannelLayout layout);
    static const LayoutRecord& Find(const std::string& name);
    static const LayoutRecord& Find(int channels);
    // Null when no record has that mask.
    static const LayoutRecord* FindByMask(std::uint64_t mask);
};

}  // namespace Tervan::Conf
