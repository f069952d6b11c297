#pragma once

#include "Conf/DataHelpers/DataHelperFormatProgramStream.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// An MPEG-1 system stream. The format identifier goes under the root's type key.
class TERVAN_API DataHelperFormatMpeg1 : public DataHelperFormatProgramStream {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatMpeg1();
    ~DataHelperFormatMpeg1() override;
};

}  // namespace Tervan::Conf
