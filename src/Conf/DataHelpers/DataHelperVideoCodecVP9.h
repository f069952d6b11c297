#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// VP9: variable bitrate only, defaulting to quality 10.
class TERVAN_API DataHelperVideoCodecVP9 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecVP9();

protected:
    ~DataHelperVideoCodecVP9() override;
};

}  // namespace Tervan::Conf
