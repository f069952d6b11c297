#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// HEVC through x265: encoder presets and tunes. Deliberately not offered by the
// registry.
class TERVAN_API DataHelperVideoCodecX265 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecX265();

protected:
    ~DataHelperVideoCodecX265() override;
};

}  // namespace Tervan::Conf
