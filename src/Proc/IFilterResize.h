#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

class TERVAN_API IFilterResize {
public:
    static const std::string CLASS_ID;
};

}  // namespace Tervan::Proc
