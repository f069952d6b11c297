#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecImageBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// Motion JPEG: an image codec whose defaults ask for variable bitrate.
class TERVAN_API DataHelperVideoCodecMjpeg : public DataHelperVideoCodecImageBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecMjpeg();

    Core::Property GetDefaults() const override;

protected:
    ~DataHelperVideoCodecMjpeg() override;
};

}  // namespace Tervan::Conf
