#pragma once

#include "Conf/DataHelpers/DataHelperFormatProgramStream.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// An MPEG-2 program stream. The format identifier goes under the root's type key.
class TERVAN_API DataHelperFormatVOB : public DataHelperFormatProgramStream {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

protected:
    DataHelperFormatVOB();
    ~DataHelperFormatVOB() override;
};

}  // namespace Tervan::Conf
