#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

// The resizer object inside the resize filter's settings, and its setting values.
class TERVAN_API IResize {
public:
    static const std::string CLASS_ID;
    static const std::string MODE, METHOD, FRAME_SIZE_MODE;
    static const std::string MODE_SMART_FIT, MODE_UP_TO, MODE_LETTERBOX, MODE_STRETCH, MODE_AUTO, MODE_CROP;
    static const std::string METHOD_POINT, METHOD_FAST_BILINEAR, METHOD_BILINEAR, METHOD_BICUBIC;
    static const std::string FRAME_SIZE_CUSTOM, FRAME_SIZE_CUSTOM_SCALE, FRAME_SIZE_ORIGINAL, FRAME_SIZE_HALF_ORIGINAL,
        FRAME_SIZE_QUARTER_ORIGINAL;
};

}  // namespace Tervan::Proc
