#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Ogg video. The format identifier goes under the root's type key.
class TERVAN_API DataHelperFormatOgv : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatOgv();
    ~DataHelperFormatOgv() override;
};

}  // namespace Tervan::Conf
