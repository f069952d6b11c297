#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Windows Media Video 8: its quality scale runs from 1 to 31.
class TERVAN_API DataHelperVideoCodecWmv2 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecWmv2();

protected:
    ~DataHelperVideoCodecWmv2() override;
};

}  // namespace Tervan::Conf
