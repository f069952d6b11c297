#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Ogg audio. The format identifier goes under the root's type key.
class TERVAN_API DataHelperFormatOgg : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatOgg();
    ~DataHelperFormatOgg() override;
};

}  // namespace Tervan::Conf
