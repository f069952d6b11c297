#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// DTS: any bitrate and mode, and no rules at all on the resampler.
class TERVAN_API DataHelperAudioCodecDTS : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecDTS();

protected:
    ~DataHelperAudioCodecDTS() override;
};

}  // namespace Tervan::Conf
