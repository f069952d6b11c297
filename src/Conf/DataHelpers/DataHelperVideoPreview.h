#pragma once

#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// The preview filter, which shows one frame of every so many.
class TERVAN_API DataHelperVideoPreview : public DataHelperFilter {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperVideoPreview();
    ~DataHelperVideoPreview() override;
};

}  // namespace Tervan::Conf
