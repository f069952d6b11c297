#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Sorenson H.263 as Flash video writes it. Constant bitrate only; the one video codec that
// asks for neither the resize nor the frame-rate filter.
class TERVAN_API DataHelperVideoCodecFlv1 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecFlv1();

protected:
    ~DataHelperVideoCodecFlv1() override;
};

}  // namespace Tervan::Conf
