#pragma once

#include "Core/Api.h"
#include "Core/Property.h"
#include "Proc/SettingsFilterAudioVolume.h"

#include <string>

namespace Tervan::Proc {

class TERVAN_API IFilterAudioVolume {
public:
    static const std::string CLASS_ID;
    // The volume in percent, an integer.
    static const std::string VOLUME_VALUE;

    // CLASS_ID { VOLUME_VALUE }.
    static Core::Property Settings2Property(const SettingsFilterAudioVolume& settings);
};

}  // namespace Tervan::Proc
