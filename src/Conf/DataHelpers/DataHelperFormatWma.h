#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Windows Media audio.
class TERVAN_API DataHelperFormatWma : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatWma();
    ~DataHelperFormatWma() override;
};

}  // namespace Tervan::Conf
