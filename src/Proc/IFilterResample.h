#pragma once

#include "Conf/ChannelLayout.h"
#include "Core/Api.h"
#include "Core/Property.h"

#include <string>

namespace Tervan::Proc {

// Audio resampling and channel remixing.
class TERVAN_API IFilterResample {
public:
    static const std::string CLASS_ID;

    // CLASS_ID { IResample::CLASS_ID { sample rate (Hz), layout name, sample format
    // (packed 16-bit), IPreset::KEY_TYPE_ID = the default resampler } }.
    static Core::Property MakeSettings(Conf::ChannelLayout layout, int sampleRate);
};

}  // namespace Tervan::Proc
