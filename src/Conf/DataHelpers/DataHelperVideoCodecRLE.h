#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// QuickTime RLE: defaults to constant bitrate but admits variable.
class TERVAN_API DataHelperVideoCodecRLE : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecRLE();

protected:
    ~DataHelperVideoCodecRLE() override;
};

}  // namespace Tervan::Conf
