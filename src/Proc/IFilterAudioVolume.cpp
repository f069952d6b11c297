#include "Proc/IFilterAudioVolume.h"

namespace Tervan::Proc {

Core::Property IFilterAudioVolume::Settings2Property(const SettingsFilterAudioVolume& settings) {
    Core::Property property(CLASS_ID);
    property.SetChildT(VOLUME_VALUE, static_cast<long long>(settings.volume));
    return property;
}

}  // namespace Tervan::Proc
