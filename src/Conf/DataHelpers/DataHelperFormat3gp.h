#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// The 3GPP mobile container.
class TERVAN_API DataHelperFormat3gp : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormat3gp();
    ~DataHelperFormat3gp() override;
};

}  // namespace Tervan::Conf
