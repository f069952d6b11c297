#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// An MPEG transport stream defaulting to MPEG audio.
class TERVAN_API DataHelperFormatMpegTS : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatMpegTS();
    ~DataHelperFormatMpegTS() override;
};

}  // namespace Tervan::Conf
