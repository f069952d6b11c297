#pragma once

#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// The audio resample filter: sample rate and channel layout, applied to the audio codec.
class TERVAN_API DataHelperAudioResample : public DataHelperFilter {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

    void GetConstraints(Constraints& out) const override;
    // -1 and the unknown layout leave the codec's values as they are.
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;

protected:
    DataHelperAudioResample();
    ~DataHelperAudioResample() override;

private:
    ConstraintList m_constraints;
};

}  // namespace Tervan::Conf
