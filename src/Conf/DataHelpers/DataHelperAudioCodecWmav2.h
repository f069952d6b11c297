#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Windows Media Audio 2: constant bitrate or a quality, mono or stereo.
class TERVAN_API DataHelperAudioCodecWmav2 : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecWmav2();

protected:
    ~DataHelperAudioCodecWmav2() override;
};

}  // namespace Tervan::Conf
