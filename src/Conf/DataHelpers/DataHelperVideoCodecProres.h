#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// ProRes: defaults to constant bitrate but admits variable.
class TERVAN_API DataHelperVideoCodecProres : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecProres();

protected:
    ~DataHelperVideoCodecProres() override;
};

}  // namespace Tervan::Conf
