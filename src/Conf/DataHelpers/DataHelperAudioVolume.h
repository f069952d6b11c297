#pragma once

#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// The audio volume filter.
class TERVAN_API DataHelperAudioVolume : public DataHelperFilter {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

    void GetConstraints(Constraints& out) const override;

protected:
    DataHelperAudioVolume();
    ~DataHelperAudioVolume() override;

private:
    const ConstraintPtr m_volume;
};

}  // namespace Tervan::Conf
