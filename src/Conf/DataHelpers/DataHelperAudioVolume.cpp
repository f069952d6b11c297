#include "Conf/DataHelpers/DataHelperAudioVolume.h"

#include "Conf/DataHelpers/ConstraintRange.h"
#include "Proc/IFilterAudioVolume.h"
#include "Proc/SettingsFilterAudioVolume.h"

namespace Tervan::Conf {

boost::intrusive_ptr<const IDataHelper> DataHelperAudioVolume::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioVolume());
}

// Percent: silence up to twice the source's level.
DataHelperAudioVolume::DataHelperAudioVolume()
    : DataHelperFilter(Proc::IFilterAudioVolume::Settings2Property(Proc::SettingsFilterAudioVolume())),
      m_volume(ConstraintRange::Create(0LL, 200LL, 0LL)) {}

DataHelperAudioVolume::~DataHelperAudioVolume() = default;

void DataHelperAudioVolume::GetConstraints(Constraints& out) const {
    out[Proc::IFilterAudioVolume::VOLUME_VALUE] = m_volume;
}

}  // namespace Tervan::Conf
