#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// MPEG-2 video: frame within 32x32 to 3840x2160, and no rule on the frame rate:
// the encoder's list of rates is not enforced.
class TERVAN_API DataHelperVideoCodecMpeg2 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecMpeg2();
    void GetValidationRules(ValidationRules& out) const override;

protected:
    ~DataHelperVideoCodecMpeg2() override;

private:
    // Built once with the helper.
    ValidationRules m_ownRules;
};

}  // namespace Tervan::Conf
