#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// H.264 through x264: encoder presets, profiles, tunes and one- or two-pass
// encoding. The ultrafast preset is allowed with the baseline profile only.
class TERVAN_API DataHelperVideoCodecX264 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecX264();
    void GetValidationRules(ValidationRules& out) const override;

protected:
    ~DataHelperVideoCodecX264() override;

private:
    // Built once with the helper.
    ValidationRules m_ownRules;
};

}  // namespace Tervan::Conf
