#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

class TERVAN_API ImplNames {
public:
    // The name of the default implementation of a processing object.
    static const std::string DEFAULT;
};

}  // namespace Tervan::Proc
