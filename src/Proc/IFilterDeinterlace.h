#pragma once

#include "Core/Api.h"
#include "Core/Property.h"

#include <string>

namespace Tervan::Proc {

class TERVAN_API IFilterDeinterlace {
public:
    static const std::string CLASS_ID;
    // A boolean: false passes frames through untouched.
    static const std::string ENABLED;

    // CLASS_ID { ENABLED = deinterlace, IDeinterlace::CLASS_ID { IPreset::KEY_TYPE_ID =
    // IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG } }.
    static Core::Property MakeSettings(bool deinterlace);
};

}  // namespace Tervan::Proc
