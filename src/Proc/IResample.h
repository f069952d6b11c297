#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

// The resampler object inside the resample filter's settings.
class TERVAN_API IResample {
public:
    static const std::string CLASS_ID;
};

}  // namespace Tervan::Proc
