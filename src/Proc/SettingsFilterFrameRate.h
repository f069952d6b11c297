#pragma once

#include "Core/Api.h"

#include <boost/rational.hpp>

namespace Tervan::Proc {

class TERVAN_API SettingsFilterFrameRate {
public:
    // The frame rate that means: keep the source's frame rate.
    static const boost::rational<long long> MARK_USE_ORIGINAL_FRAMERATE;
};

}  // namespace Tervan::Proc
