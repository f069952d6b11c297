#pragma once

#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// The video frame-rate filter.
class TERVAN_API DataHelperVideoResample : public DataHelperFilter {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

    void GetConstraints(Constraints& out) const override;
    // The "Auto" mark keeps the codec's (the source's) frame rate.
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;

protected:
    DataHelperVideoResample();
    ~DataHelperVideoResample() override;

private:
    const ConstraintPtr m_frameRates;
};

}  // namespace Tervan::Conf
