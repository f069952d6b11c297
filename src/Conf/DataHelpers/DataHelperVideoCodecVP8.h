#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// VP8: constant bitrate only.
class TERVAN_API DataHelperVideoCodecVP8 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecVP8();

protected:
    ~DataHelperVideoCodecVP8() override;
};

}  // namespace Tervan::Conf
