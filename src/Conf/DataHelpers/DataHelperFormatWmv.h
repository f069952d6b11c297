#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Windows Media video, the one plain container carrying several video streams.
class TERVAN_API DataHelperFormatWmv : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatWmv();
    ~DataHelperFormatWmv() override;
};

}  // namespace Tervan::Conf
