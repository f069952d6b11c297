#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// The AVI container.
class TERVAN_API DataHelperFormatAvi : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatAvi();
    ~DataHelperFormatAvi() override;
};

}  // namespace Tervan::Conf
