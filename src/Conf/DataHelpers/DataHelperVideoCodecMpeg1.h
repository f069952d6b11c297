#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// MPEG-1 video: constant bitrate only, frame within 32x32 to 3840x2160.
class TERVAN_API DataHelperVideoCodecMpeg1 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecMpeg1();
    void GetValidationRules(ValidationRules& out) const override;

protected:
    ~DataHelperVideoCodecMpeg1() override;

private:
    // Built once with the helper.
    ValidationRules m_ownRules;
};

}  // namespace Tervan::Conf
