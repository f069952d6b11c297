#include "Conf/DataHelpers/ValidationRuleCheck.h"

#include "Conf/ConfException.h"

namespace Tervan::Conf {
namespace {

enum class Judgement { SATISFIED, UNSATISFIED, WRONG_TYPE };

Judgement Judge(const IPropertyConstraint& constraint, const Core::Property& value, std::string& detail) {
    try {
        return constraint.IsValid(value) ? Judgement::SATISFIED : Judgement::UNSATISFIED;
    } catch (const ConstraintException& e) {
        detail = "value of type " + std::to_string(value.GetType()) + " where type " +
                 (boost::get_error_info<ConstraintException::TagValueType>(e) != nullptr
                      ? std::to_string(*boost::get_error_info<ConstraintException::TagValueType>(e))
                      : std::string("another")) +
                 " is expected";
    } catch (const Core::PropertyException&) {
        detail = "value of type " + std::to_string(value.GetType()) + " cannot be read as the constraint's type";
    }
    return Judgement::WRONG_TYPE;
}

ValidationRuleCheck Make(ValidationRuleCheck::Verdict verdict, const std::string& path, std::string detail) {
    ValidationRuleCheck check;
    check.verdict = verdict;
    check.path = path;
    check.detail = std::move(detail);
    return check;
}

}  // namespace

ValidationRuleCheck ValidationRuleCheck::Evaluate(const IValidationRule& rule, const Core::Property& settings) {
    const std::string firstPath = rule.GetFirstPath();
    const auto firstConstraint = rule.GetFirstConstraint();
    // A rule tied to no other setting always applies.
    if (firstConstraint && !firstPath.empty()) {
        const Core::Property* first = settings.FindChildByPath(firstPath);
        if (first == nullptr) {
            return Make(MISSING_SETTING, firstPath, "missing setting " + firstPath);
        }
        std::string detail;
        switch (Judge(*firstConstraint, *first, detail)) {
        case Judgement::UNSATISFIED:
            return Make(HOLDS, firstPath, {});
        case Judgement::WRONG_TYPE:
            return Make(WRONG_TYPE, firstPath, detail);
        case Judgement::SATISFIED:
            break;
        }
    }
    const std::string secondPath = rule.GetSecondPath();
    const auto secondConstraint = rule.GetSecondConstraint();
    const Core::Property* second = settings.FindChildByPath(secondPath);
    if (second == nullptr) {
        return Make(MISSING_SETTING, secondPath, "missing setting " + secondPath);
    }
    if (!secondConstraint) {
        return Make(HOLDS, secondPath, {});
    }
    std::string detail;
    switch (Judge(*secondConstraint, *second, detail)) {
    case Judgement::SATISFIED:
        return Make(HOLDS, secondPath, {});
    case Judgement::WRONG_TYPE:
        return Make(WRONG_TYPE, secondPath, detail);
    case Judgement::UNSATISFIED:
        break;
    }
    return Make(BROKEN, secondPath,
                   firstPath.empty() ? secondPath + " is not admitted"
                                     : secondPath + " is not admitted when " + firstPath + " is " +
                                           Core::PropertyValueToString(settings.ChildByPath(firstPath)));
}

}  // namespace Tervan::Conf
