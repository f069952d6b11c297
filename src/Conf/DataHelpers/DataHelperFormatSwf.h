#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Flash animation.
class TERVAN_API DataHelperFormatSwf : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatSwf();
    ~DataHelperFormatSwf() override;
};

}  // namespace Tervan::Conf
