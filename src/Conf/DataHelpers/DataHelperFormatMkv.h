#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// The Matroska container.
class TERVAN_API DataHelperFormatMkv : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatMkv();
    ~DataHelperFormatMkv() override;
};

}  // namespace Tervan::Conf
