#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Conf {

// Setting names shared by every codec section.
class TERVAN_API IFormatCodec {
public:
    static const std::string TAG_NAME, TAG_CODEC_ID, TAG_BITRATE, TAG_BITRATE_MODE, TAG_QUALITY, TAG_PRESET,
        TAG_PROFILE, TAG_ONE_PASS_MODE, TAG_TWO_PASS_MODE, TAG_MULTIPASS_ENCODING, TAG_THREAD_NUMBER,
        TAG_UTILIZE_ALL_RESOURCES, TAG_CODEC_OPTIONS_ENCODE;

    static const std::string TAG_BITRATE_MODE_CBR, TAG_BITRATE_MODE_VBR, TAG_BITRATE_MODE_CBR_AUTO;

    static const std::string CODEC_ID_AUTO;
    static constexpr long long MAX_QUALITY = 100;
};

}  // namespace Tervan::Conf
