#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// MPEG-1 Layer II: constant bitrate from the layer's list, at the MPEG-1 sample rates.
class TERVAN_API DataHelperAudioCodecMp2 : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecMp2();

protected:
    ~DataHelperAudioCodecMp2() override;
};

}  // namespace Tervan::Conf
