#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Theora: its quality scale runs from 1 to 10.
class TERVAN_API DataHelperVideoCodecTheora : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecTheora();

protected:
    ~DataHelperVideoCodecTheora() override;
};

}  // namespace Tervan::Conf
