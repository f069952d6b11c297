#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// A native FLAC stream.
class TERVAN_API DataHelperFormatFlac : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatFlac();
    ~DataHelperFormatFlac() override;
};

}  // namespace Tervan::Conf
