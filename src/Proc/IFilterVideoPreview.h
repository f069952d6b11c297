#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

class TERVAN_API IFilterVideoPreview {
public:
    static const std::string CLASS_ID;
    static const std::string FRAMES_TO_SKIP_COUNT;
};

}  // namespace Tervan::Proc
