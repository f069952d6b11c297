#pragma once

#include "Conf/Interfaces/IValidationRule.h"
#include "Core/Property.h"

#include <string>

namespace Tervan::Conf {

// The verdict of a rule on a tree that may be missing settings or hold values of
// the wrong type. A null first constraint counts as always satisfied, so rules tied
// to no other setting are evaluated too.
struct TERVAN_API ValidationRuleCheck {
    enum Verdict {
        HOLDS,   // the rule holds
        BROKEN,  // the first setting satisfies its constraint, the second does not
        // A setting the rule must read is absent; path names it. When that is the first
        // path, the rule does not concern the tree: a format's audio rule on a video
        // stream, which a host applying the format's rules to every stream skips.
        MISSING_SETTING,
        WRONG_TYPE,  // a constraint cannot judge a value of that type; path names it
    };

    Verdict verdict = HOLDS;
    std::string path;    // the setting the verdict is about (the second path for BROKEN)
    std::string detail;  // one line for a person

    // Never throws for a missing path or a type mismatch, and never terminates.
    static ValidationRuleCheck Evaluate(const IValidationRule& rule, const Core::Property& settings);
    // The same verdict and path; the detail is left empty unless the verdict is
    // WRONG_TYPE. For checking many rules quickly.
    static ValidationRuleCheck EvaluateVerdict(const IValidationRule& rule, const Core::Property& settings);
};

}  // namespace Tervan::Conf
