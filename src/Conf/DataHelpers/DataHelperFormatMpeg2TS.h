#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// An MPEG-2 transport stream defaulting to AAC audio.
class TERVAN_API DataHelperFormatMpeg2TS : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatMpeg2TS();
    ~DataHelperFormatMpeg2TS() override;
};

}  // namespace Tervan::Conf
