#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

class TERVAN_API IFilterAudioVolume {
public:
    static const std::string CLASS_ID;
    // The volume in percent, an integer.
    static const std::string VOLUME_VALUE;
};

}  // namespace Tervan::Proc
