#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// MPEG-1 Layer III: constant bitrate or a quality; the resampler follows the encoder.
class TERVAN_API DataHelperAudioCodecMp3 : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecMp3();

protected:
    ~DataHelperAudioCodecMp3() override;
};

}  // namespace Tervan::Conf
