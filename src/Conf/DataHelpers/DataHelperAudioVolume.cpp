#include "Conf/DataHelpers/DataHelperAudioVolume.h"

#include "Conf/DataHelpers/ConstraintRange.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/SettingsFilterAudioVolume.h"

namespace Tervan::Conf {

boost::intrusive_ptr<const IDataHelper> DataHelperAudioVolume::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioVolume());
}

DataHelperAudioVolume::~DataHelperAudioVolume() = default;

Core::Property DataHelperAudioVolume::GetDefaults() const {
    return Proc::IFilterAudioVolume::Settings2Property(Proc::SettingsFilterAudioVolume());
}

void DataHelperAudioVolume::GetConstraints(Constraints& out) const {
    // Percent: silence up to twice the source's level.
    out[Proc::IFilterAudioVolume::VOLUME_VALUE] = ConstraintRange::Create(0LL, 200LL, 0LL);
}

}  // namespace Tervan::Conf
