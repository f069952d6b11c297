#include "Conf/DataHelpers/PairValidationRule.h"

#include <utility>

namespace Tervan::Conf {

PairValidationRule::PairValidationRule(std::string firstPath,
                                       boost::intrusive_ptr<const IPropertyConstraint> firstConstraint,
                                       std::string secondPath,
                                       boost::intrusive_ptr<const IPropertyConstraint> secondConstraint)
    : m_firstPath(std::move(firstPath)),
      m_secondPath(std::move(secondPath)),
      m_firstConstraint(std::move(firstConstraint)),
      m_secondConstraint(std::move(secondConstraint)) {}

PairValidationRule::~PairValidationRule() = default;

boost::intrusive_ptr<IValidationRule> PairValidationRule::Create(
    const std::string& firstPath, boost::intrusive_ptr<const IPropertyConstraint> firstConstraint,
    const std::string& secondPath, boost::intrusive_ptr<const IPropertyConstraint> secondConstraint) {
    return new PairValidationRule(firstPath, std::move(firstConstraint), secondPath, std::move(secondConstraint));
}

// noexcept on purpose: a rule built with a path that does not exist, or with a
// constraint of another type, is a programming error that ends the process.
bool PairValidationRule::IsValid(const Core::Property& settings) const noexcept {
    // A rule without a first constraint is tied to nothing and always applies.
    if (m_firstConstraint && !m_firstConstraint->IsValid(settings.ChildByPath(m_firstPath))) {
        return true;
    }
    return m_secondConstraint->IsValid(settings.ChildByPath(m_secondPath));
}

std::string PairValidationRule::GetFirstPath() const {
    return m_firstPath;
}

std::string PairValidationRule::GetSecondPath() const {
    return m_secondPath;
}

boost::intrusive_ptr<const IPropertyConstraint> PairValidationRule::GetFirstConstraint() const {
    return m_firstConstraint;
}

boost::intrusive_ptr<const IPropertyConstraint> PairValidationRule::GetSecondConstraint() const {
    return m_secondConstraint;
}

}  // namespace Tervan::Conf
