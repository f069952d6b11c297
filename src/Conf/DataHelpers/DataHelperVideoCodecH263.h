#pragma once

#include "Conf/DataHelpers/DataHelperVideoCodecBase.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// H.263: the output frame must be one of the five standard picture sizes.
class TERVAN_API DataHelperVideoCodecH263 : public DataHelperVideoCodecBase {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();
    DataHelperVideoCodecH263();
    void GetValidationRules(ValidationRules& out) const override;

protected:
    ~DataHelperVideoCodecH263() override;

private:
    // Built once with the helper.
    ValidationRules m_ownRules;
};

}  // namespace Tervan::Conf
