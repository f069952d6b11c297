#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecProres.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// QuickTime RLE: the settings of ProRes under its own identifier.
class TERVAN_API DataHelperVideoCodecRLE : public DataHelperVideoCodecProres {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecRLE();

protected:
    ~DataHelperVideoCodecRLE() override;
};

}  // namespace Tervan::Conf
