#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

// The deinterlacer object inside the deinterlace filter's settings.
class TERVAN_API IDeinterlace {
public:
    static const std::string CLASS_ID;
    // The implementation that keeps the frame rate; spelled so on purpose.
    static const std::string DEINTERLACE_IMPL_STANDART_FFMPEG;
};

}  // namespace Tervan::Proc
