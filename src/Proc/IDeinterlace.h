#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

// The deinterlacer object inside the deinterlace filter's settings; its
// IPreset::KEY_TYPE_ID names the implementation.
class TERVAN_API IDeinterlace {
public:
    static const std::string CLASS_ID;
    // One frame per frame: keeps the frame rate. Spelled so on purpose.
    static const std::string DEINTERLACE_IMPL_STANDART_FFMPEG;
    // One frame per field: doubles the frame rate.
    static const std::string DEINTERLACE_IMPL_FIELDS_FFMPEG;
};

}  // namespace Tervan::Proc
