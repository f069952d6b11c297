#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// The Flash video container.
class TERVAN_API DataHelperFormatFlv : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatFlv();
    ~DataHelperFormatFlv() override;
};

}  // namespace Tervan::Conf
