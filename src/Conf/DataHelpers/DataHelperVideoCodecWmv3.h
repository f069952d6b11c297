#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Windows Media Video 9. Deliberately not offered by the registry.
class TERVAN_API DataHelperVideoCodecWmv3 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecWmv3();

protected:
    ~DataHelperVideoCodecWmv3() override;
};

}  // namespace Tervan::Conf
