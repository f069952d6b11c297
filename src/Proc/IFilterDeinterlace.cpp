#include "Proc/IFilterDeinterlace.h"

#include "Conf/Interfaces/IPreset.h"
#include "Proc/IDeinterlace.h"

namespace Tervan::Proc {

Core::Property IFilterDeinterlace::MakeSettings(bool deinterlace) {
    Core::Property settings(CLASS_ID);
    settings.SetChildT(ENABLED, deinterlace);
    settings.SetChild(IDeinterlace::CLASS_ID)
        .SetChildT(Conf::IPreset::KEY_TYPE_ID, IDeinterlace::DEINTERLACE_IMPL_STANDART_FFMPEG);
    return settings;
}

}  // namespace Tervan::Proc
