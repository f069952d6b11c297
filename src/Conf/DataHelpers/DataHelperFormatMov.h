#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// The QuickTime container. Its tree names no container: only the progressive flag,
// the limits and the streams.
class TERVAN_API DataHelperFormatMov : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatMov();
    ~DataHelperFormatMov() override;
};

}  // namespace Tervan::Conf
