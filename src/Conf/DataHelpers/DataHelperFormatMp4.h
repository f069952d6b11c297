#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// The MPEG-4 container; also serves iPod output.
class TERVAN_API DataHelperFormatMp4 : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatMp4();
    ~DataHelperFormatMp4() override;
};

}  // namespace Tervan::Conf
