#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Raw AAC audio in ADTS frames.
class TERVAN_API DataHelperFormatAAC : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatAAC();
    ~DataHelperFormatAAC() override;
};

}  // namespace Tervan::Conf
