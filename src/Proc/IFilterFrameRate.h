#pragma once

#include "Core/Api.h"
#include "Core/Property.h"

#include <boost/rational.hpp>

#include <string>

namespace Tervan::Proc {

class TERVAN_API IFilterFrameRate {
public:
    static const std::string CLASS_ID;

    // CLASS_ID { IFormatCodecVideo::TAG_FPS = rate }; SettingsFilterFrameRate::
    // MARK_USE_ORIGINAL_FRAMERATE keeps the source's rate.
    static Core::Property MakeSettings(const boost::rational<long long>& rate);
};

}  // namespace Tervan::Proc
