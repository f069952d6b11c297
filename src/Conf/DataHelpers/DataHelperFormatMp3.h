#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Raw MP3 audio.
class TERVAN_API DataHelperFormatMp3 : public DataHelperFormatContainer {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatMp3();
    ~DataHelperFormatMp3() override;
};

}  // namespace Tervan::Conf
