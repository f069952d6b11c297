#pragma once

#include "Conf/DataHelpers/DataHelperFilter.h"

namespace Tervan::Conf {

// The video resize filter: the output frame and how the picture is fitted into it.
class TERVAN_API DataHelperVideoResize : public DataHelperFilter {
public:
    static boost::intrusive_ptr<const IDataHelper> Create();

    void GetConstraints(Constraints& out) const override;
    void GetValidationRules(ValidationRules& out) const override;
    // Turns the source frame in out (the video codec's settings) into the filter's output frame.
    void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const override;

protected:
    DataHelperVideoResize();
    ~DataHelperVideoResize() override;

private:
    ConstraintList m_constraints;
    ValidationRules m_rules;
};

}  // namespace Tervan::Conf
