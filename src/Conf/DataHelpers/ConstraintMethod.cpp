#include "Conf/DataHelpers/ConstraintMethod.h"

#include <utility>

namespace Tervan::Conf {

ConstraintMethod::ConstraintMethod(Predicate predicate, std::string description)
    : m_predicate(std::move(predicate)), m_description(std::move(description)) {}

ConstraintMethod::~ConstraintMethod() = default;

boost::intrusive_ptr<const IPropertyConstraint> ConstraintMethod::Create(Predicate predicate,
                                                                         const std::string& description) {
    return new ConstraintMethod(std::move(predicate), description);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintMethod::CreateEven(const std::string& description) {
    return Create(&ConstraintMethod::IsEven, description);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintMethod::CreateAlwaysTrue(const std::string& description) {
    return Create(&ConstraintMethod::AlwaysTrue, description);
}

bool ConstraintMethod::IsEven(const Core::Property& value) {
    return value.GetType() == TYPE_INT64 && (value.GetInt64() & 1) == 0;
}

bool ConstraintMethod::AlwaysTrue(const Core::Property& /*value*/) {
    return true;
}

void ConstraintMethod::FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& /*consumer*/) const {}

bool ConstraintMethod::IsValid(const Core::Property& value) const {
    return !m_predicate.empty() && m_predicate(value);
}

bool ConstraintMethod::Fixup(Core::Property& value) const {
    return IsValid(value);
}

std::string ConstraintMethod::Description(const std::string& /*name*/) const {
    return m_description;
}

}  // namespace Tervan::Conf
