#pragma once

#include "Conf/Interfaces/IValidationRule.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// "When the first setting satisfies the first constraint, the second must satisfy
// the second." IsValid throws nothing: a missing setting or a type mismatch ends the
// process, so evaluate rules on untrusted trees with ValidationRuleCheck::Evaluate.
// A rule without a first constraint is tied to no other setting and always demands
// the second (such rules come with an empty first path).
class TERVAN_API PairValidationRule : public RefCounted<IValidationRule> {
public:
    static boost::intrusive_ptr<IValidationRule> Create(
        const std::string& firstPath, boost::intrusive_ptr<const IPropertyConstraint> firstConstraint,
        const std::string& secondPath, boost::intrusive_ptr<const IPropertyConstraint> secondConstraint);

    bool IsValid(const Core::Property& settings) const noexcept override;
    std::string GetFirstPath() const override;
    std::string GetSecondPath() const override;
    boost::intrusive_ptr<const IPropertyConstraint> GetFirstConstraint() const override;
    boost::intrusive_ptr<const IPropertyConstraint> GetSecondConstraint() const override;

    // The paths without a copy, for checks that read many rules.
    const std::string& FirstPath() const noexcept { return m_firstPath; }
    const std::string& SecondPath() const noexcept { return m_secondPath; }

protected:
    PairValidationRule(std::string firstPath, boost::intrusive_ptr<const IPropertyConstraint> firstConstraint,
                       std::string secondPath, boost::intrusive_ptr<const IPropertyConstraint> secondConstraint);
    ~PairValidationRule() override;

private:
    std::string m_firstPath;
    std::string m_secondPath;
    boost::intrusive_ptr<const IPropertyConstraint> m_firstConstraint;
    boost::intrusive_ptr<const IPropertyConstraint> m_secondConstraint;
};

}  // namespace Tervan::Conf
