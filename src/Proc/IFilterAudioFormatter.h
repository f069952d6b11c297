#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

// Cuts audio into packets of a fixed duration.
class TERVAN_API IFilterAudioFormatter {
public:
    static const std::string CLASS_ID;
    // Microseconds, an integer.
    static const std::string PACKET_DURATION;
};

}  // namespace Tervan::Proc
