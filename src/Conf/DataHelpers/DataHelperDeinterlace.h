#pragma once

#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// The deinterlace filter.
class TERVAN_API DataHelperDeinterlace : public DataHelperFilter {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

    // Every implementation but the standard one emits a frame per field: twice the rate.
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;

protected:
    DataHelperDeinterlace();
    ~DataHelperDeinterlace() override;
};

}  // namespace Tervan::Conf
