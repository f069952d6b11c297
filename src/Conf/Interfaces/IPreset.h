#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Conf {

// The registry's type keys and the keys of a preset's stream list.
class TERVAN_API IPreset {
public:
    static const std::string KEY_FORMAT, KEY_FILTER_AUDIO_CODEC, KEY_FILTER_VIDEO_CODEC, KEY_STREAMS, KEY_TYPE_ID;
    static const std::string STREAM_TYPE_AUDIO, STREAM_TYPE_VIDEO;
    // Joined between KEY_STREAMS and a stream type, it makes a key that means
    // "in every stream of that type".
    static const std::string INDEX;
};

}  // namespace Tervan::Conf
