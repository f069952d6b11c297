#include "Proc/IFilterFrameRate.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Proc {

Core::Property IFilterFrameRate::MakeSettings(const boost::rational<long long>& rate) {
    Core::Property settings(CLASS_ID);
    settings.SetChildT(Conf::IFormatCodecVideo::TAG_FPS, rate);
    return settings;
}

}  // namespace Tervan::Proc
