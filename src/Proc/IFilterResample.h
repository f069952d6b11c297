#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

// Audio resampling and channel remixing.
class TERVAN_API IFilterResample {
public:
    static const std::string CLASS_ID;
};

}  // namespace Tervan::Proc
