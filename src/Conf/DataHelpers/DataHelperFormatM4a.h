#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// MPEG-4 audio, with room for a single other stream.
class TERVAN_API DataHelperFormatM4a : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatM4a();
    ~DataHelperFormatM4a() override;
};

}  // namespace Tervan::Conf
