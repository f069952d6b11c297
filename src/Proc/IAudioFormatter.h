#pragma once

#include "Core/Api.h"

#include <string>

namespace Tervan::Proc {

// The formatter object inside the audio formatter filter's settings.
class TERVAN_API IAudioFormatter {
public:
    static const std::string CLASS_ID;
};

}  // namespace Tervan::Proc
