#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// A rule over a whole settings tree tying two settings together by their paths.
class TERVAN_API IValidationRule : public virtual IRefCountable {
public:
    // Throws nothing: a path the tree lacks or a value a constraint cannot judge ends
    // the process. For a tree that may be incomplete, ask ValidationRuleCheck instead.
    virtual bool IsValid(const Core::Property& settings) const noexcept = 0;
    virtual std::string GetFirstPath() const = 0;
    virtual std::string GetSecondPath() const = 0;
    virtual boost::intrusive_ptr<const IPropertyConstraint> GetFirstConstraint() const = 0;
    virtual boost::intrusive_ptr<const IPropertyConstraint> GetSecondConstraint() const = 0;
};

}  // namespace Tervan::Conf
