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
    // For codecs whose settings are ProRes's, under their own identifier.
    explicit DataHelperVideoCodecProres(const std::string& codecId);
    ~DataHelperVideoCodecProres() override;
};

}  // namespace Tervan::Conf
