#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// AMR narrow-band: speech at 8000 Hz, mono, at one of the codec's eight modes.
class TERVAN_API DataHelperAudioCodecAmrNB : public DataHelperAudioCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecAmrNB();

protected:
    ~DataHelperAudioCodecAmrNB() override;
};

}  // namespace Tervan::Conf
