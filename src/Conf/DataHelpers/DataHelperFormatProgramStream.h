#pragma once

#include "Conf/DataHelpers/DataHelperFormatContainer.h"
#include "Conf/DataHelpers/PairList.h"

#include <string>

namespace Tervan::Conf {

// An MPEG program stream: its MPEG video may only run at the MPEG frame rates.
class TERVAN_API DataHelperFormatProgramStream : public DataHelperFormatContainer {
protected:
    // frameRateCodecs: the video codecs held to the MPEG frame rates.
    DataHelperFormatProgramStream(const Description& description, const PairList<std::string>& frameRateCodecs);
    ~DataHelperFormatProgramStream() override;
};

}  // namespace Tervan::Conf
