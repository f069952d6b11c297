#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// AC-3: any bitrate and mode, any sample rate; the encoder's own lists are not enforced.
class TERVAN_API DataHelperAudioCodecAc3 : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecAc3();

protected:
    ~DataHelperAudioCodecAc3() override;
};

}  // namespace Tervan::Conf
