#pragma once

#include "Core/Api.h"

namespace Tervan::Proc {

// The volume filter's settings.
struct TERVAN_API SettingsFilterAudioVolume {
    // Percent of the source's level.
    int volume = 100;
};

}  // namespace Tervan::Proc
