#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// WAVE audio.
class TERVAN_API DataHelperFormatWav : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatWav();
    ~DataHelperFormatWav() override;
};

}  // namespace Tervan::Conf
