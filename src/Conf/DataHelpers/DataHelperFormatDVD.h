#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// A DVD-Video disc: a TV standard, a disc size, and the bit rates and audio the
// DVD-Video standard allows.
class TERVAN_API DataHelperFormatDVD : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatDVD();
    ~DataHelperFormatDVD() override;
};

}  // namespace Tervan::Conf
