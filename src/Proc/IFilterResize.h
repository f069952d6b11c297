#pragma once

#include "Core/Api.h"
#include "Core/Property.h"
#include "Proc/SettingsResizer.h"

#include <string>

namespace Tervan::Proc {

class TERVAN_API IFilterResize {
public:
    static const std::string CLASS_ID;

    // CLASS_ID { IResize::CLASS_ID { FRAME_SIZE_MODE, MODE, METHOD (IResize texts),
    // TAG_WIDTH, TAG_HEIGHT, TAG_ASPECTX, TAG_ASPECTY (integers) } }.
    static Core::Property Settings2Property(const SettingsResizer& settings);
    // Reads a tree of that shape. Throws Core::PropertyException for a missing or
    // mistyped setting, ProcException for a text that names no mode or method.
    static SettingsResizer Property2Settings(const Core::Property& property);
};

}  // namespace Tervan::Proc
