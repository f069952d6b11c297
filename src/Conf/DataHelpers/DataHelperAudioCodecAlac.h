#pragma once

#include "Conf/DataHelpers/DataHelperAudioCodecFlac.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Apple Lossless: FLAC's estimate and corrections, under the encoder's own rules only.
class TERVAN_API DataHelperAudioCodecAlac : public DataHelperAudioCodecFlac {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperAudioCodecAlac();

protected:
    ~DataHelperAudioCodecAlac() override;
};

}  // namespace Tervan::Conf
