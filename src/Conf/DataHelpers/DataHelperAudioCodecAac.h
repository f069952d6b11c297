#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// AAC: constant bitrate from a fixed list, mono or stereo, with a choice of profile.
class TERVAN_API DataHelperAudioCodecAac : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecAac();

protected:
    ~DataHelperAudioCodecAac() override;
};

}  // namespace Tervan::Conf
