#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// MPEG-4 Visual: constant bitrate only, with a choice of profile.
class TERVAN_API DataHelperVideoCodecMpeg4 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecMpeg4();

protected:
    ~DataHelperVideoCodecMpeg4() override;
};

}  // namespace Tervan::Conf
