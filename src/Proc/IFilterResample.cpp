#include "Proc/IFilterResample.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IPreset.h"
#include "Conf/SampleFormats.h"
#include "Proc/IResample.h"
#include "Proc/ImplNames.h"

namespace Tervan::Proc {

Core::Property IFilterResample::MakeSettings(Conf::ChannelLayout layout, int sampleRate) {
    Core::Property settings(CLASS_ID);
    Core::Property& resampler = settings.SetChild(IResample::CLASS_ID);
    resampler.SetChildT(Conf::IFormatCodecAudio::TAG_SAMPLE_RATE, static_cast<long long>(sampleRate));
    resampler.SetChildT(Conf::IFormatCodecAudio::TAG_LAYOUT, std::string(Conf::LayoutRecord::Find(layout).name));
    resampler.SetChildT(Conf::IFormatCodecAudio::TAG_SAMPLE_FORMAT,
                        std::string(Conf::SampleFmtRecord::Find(Conf::SAMPLE_FMT_S16).name));
    resampler.SetChildT(Conf::IPreset::KEY_TYPE_ID, ImplNames::DEFAULT);
    return settings;
}

}  // namespace Tervan::Proc
