#include "Conf/DataHelpers/ValidationRuleCheck.h"

#include "Conf/ConfException.h"
#include "Conf/DataHelpers/PairValidationRule.h"

#include <typeinfo>
#include <utility>

namespace Tervan::Conf {
namespace {

enum class Judgement { SATISFIED, UNSATISFIED, WRONG_TYPE };

// detail is set only for WRONG_TYPE.
Judgement Judge(const IPropertyConstraint& constraint, const std::string& path, const Core::Property& value,
                std::string& detail) {
    try {
        return constraint.IsValid(value) ? Judgement::SATISFIED : Judgement::UNSATISFIED;
    } catch (const FormatException&) {
        // A layout or sample format the vocabulary does not know is simply not admitted.
        return Judgement::UNSATISFIED;
    } catch (const ConstraintException& e) {
        const auto* expected = boost::get_error_info<ConstraintException::TagValueType>(e);
        detail = path + " holds a value of the type " + PropertyTypeName(value.GetType()) + " where " +
                 (expected != nullptr ? std::string("the type ") + PropertyTypeName(*expected) : "another type") +
                 " is expected";
    } catch (const Core::PropertyException&) {
        detail = path + " holds a value of the type " + PropertyTypeName(value.GetType()) +
                 " that its constraint cannot read";
    }
    return Judgement::WRONG_TYPE;
}

std::string Said(const std::string& path, const Core::Property& value) {
    return path + " is " + Core::PropertyValueToString(value);
}

// One of the two paths of the rule being checked. The library's own rules lend theirs;
// any other rule's is copied, once. The verdict takes the one it names.
class RulePath {
public:
    RulePath(const IValidationRule& rule, const PairValidationRule* own, bool first) {
        if (own != nullptr) {
            m_lent = first ? &own->FirstPath() : &own->SecondPath();
        } else {
            m_copy = first ? rule.GetFirstPath() : rule.GetSecondPath();
        }
    }

    const std::string& Get() const { return m_lent != nullptr ? *m_lent : m_copy; }

    std::string Take() {
        if (m_lent != nullptr) {
            return *m_lent;
        }
        return std::move(m_copy);
    }

private:
    const std::string* m_lent = nullptr;
    std::string m_copy;
};

// Takes the path and the detail over: a host checking many rules pays for no copies.
ValidationRuleCheck Make(ValidationRuleCheck::Verdict verdict, std::string&& path, std::string&& detail) {
    ValidationRuleCheck check;
    check.verdict = verdict;
    check.path = std::move(path);
    check.detail = std::move(detail);
    return check;
}

ValidationRuleCheck Run(const IValidationRule& rule, const Core::Property& settings, bool explain) {
    using Check = ValidationRuleCheck;
    // Builds the detail line only when asked: a host checking many rules wants verdicts.
    const auto text = [explain](const auto& make) { return explain ? make() : std::string(); };
    const auto* own =
        typeid(rule) == typeid(PairValidationRule) ? static_cast<const PairValidationRule*>(&rule) : nullptr;
    RulePath firstPath(rule, own, true);
    const auto firstConstraint = rule.GetFirstConstraint();
    // Why the second setting is asked at all, for the detail line.
    std::string because;
    // A rule tied to no other setting always applies.
    if (firstConstraint) {
        const Core::Property* first = settings.FindChildByPath(firstPath.Get());
        if (first == nullptr) {
            std::string line = text([&] { return "missing setting " + firstPath.Get(); });
            return Make(Check::MISSING_SETTING, firstPath.Take(), std::move(line));
        }
        std::string detail;
        switch (Judge(*firstConstraint, firstPath.Get(), *first, detail)) {
            case Judgement::UNSATISFIED:
                detail = text([&] { return "does not apply while " + Said(firstPath.Get(), *first); });
                return Make(Check::HOLDS, firstPath.Take(), std::move(detail));
            case Judgement::WRONG_TYPE:
                return Make(Check::WRONG_TYPE, firstPath.Take(), std::move(detail));
            case Judgement::SATISFIED:
                because = text([&] { return " while " + Said(firstPath.Get(), *first); });
                break;
        }
    }
    RulePath secondPath(rule, own, false);
    const auto secondConstraint = rule.GetSecondConstraint();
    const Core::Property* second = settings.FindChildByPath(secondPath.Get());
    std::string detail;
    if (second == nullptr) {
        detail = text([&] { return "missing setting " + secondPath.Get(); });
        return Make(Check::MISSING_SETTING, secondPath.Take(), std::move(detail));
    }
    if (!secondConstraint) {
        detail = text([&] { return "nothing is required of " + secondPath.Get(); });
        return Make(Check::HOLDS, secondPath.Take(), std::move(detail));
    }
    Check::Verdict verdict = Check::BROKEN;
    switch (Judge(*secondConstraint, secondPath.Get(), *second, detail)) {
        case Judgement::SATISFIED:
            verdict = Check::HOLDS;
            detail = text([&] { return Said(secondPath.Get(), *second) + ", as admitted" + because; });
            break;
        case Judgement::WRONG_TYPE:
            verdict = Check::WRONG_TYPE;
            break;
        case Judgement::UNSATISFIED:
            detail = text([&] { return Said(secondPath.Get(), *second) + ", not admitted" + because; });
            break;
    }
    return Make(verdict, secondPath.Take(), std::move(detail));
}

}  // namespace

ValidationRuleCheck ValidationRuleCheck::Evaluate(const IValidationRule& rule, const Core::Property& settings) {
    return Run(rule, settings, true);
}

ValidationRuleCheck ValidationRuleCheck::EvaluateVerdict(const IValidationRule& rule, const Core::Property& settings) {
    return Run(rule, settings, false);
}

}  // namespace Tervan::Conf
