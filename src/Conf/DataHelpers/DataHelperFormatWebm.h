#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// WebM, written by the Matroska muxer.
class TERVAN_API DataHelperFormatWebm : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatWebm();
    ~DataHelperFormatWebm() override;
};

}  // namespace Tervan::Conf
