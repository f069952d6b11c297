#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Conf/Interfaces/IValidationRule.h"
#include "Core/Property.h"
#include "Core/RefCount.h"

#include <boost/intrusive_ptr.hpp>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Tervan::Conf {

// Knows the settings of one format, codec or filter. Immutable and shared: every
// operation is const.
class TERVAN_API IDataHelper : public virtual IRefCountable {
public:
    using DataHelperMap = std::map<std::string, const boost::intrusive_ptr<const IDataHelper>>;
    // (object class identifier, implementation name; empty for the default one)
    using RequiredObjects = std::vector<std::pair<std::string, std::string>>;
    // Every rule is listed under the name Core::Property::SEPARATOR.
    using ValidationRules = std::vector<std::pair<std::string, boost::intrusive_ptr<IValidationRule>>>;
    // Keyed by the setting's path relative to the helper's own subtree.
    using Constraints = std::map<std::string, boost::intrusive_ptr<const IPropertyConstraint>>;

    virtual Core::Property GetDefaults() const = 0;
    virtual void GetRequiredObjects(RequiredObjects& out) const = 0;
    virtual void GetValidationRules(ValidationRules& out) const = 0;
    virtual void GetConstraints(Constraints& out) const = 0;
    virtual void ApplyPresetSettings(const Core::Property& preset, Core::Property& out) const = 0;
    virtual void CorrectFormatCodec(Core::Property& settings) const = 0;
};

using DataHelperPtr = boost::intrusive_ptr<const IDataHelper>;

}  // namespace Tervan::Conf
