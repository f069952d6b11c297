#pragma once

#include "Conf/Interfaces/IDataHelper.h"

#include <string>
#include <utility>
#include <vector>

namespace Tervan::Conf {

// Constraints and rules are immutable, so a helper builds its own once, when it is
// constructed, and every call hands out references to them.
using ConstraintList = std::vector<std::pair<std::string, ConstraintPtr>>;

// Later entries replace earlier ones of the same key, as the helpers' layering requires.
inline void InsertConstraints(IDataHelper::Constraints& out, const ConstraintList& constraints) {
    for (const auto& [key, constraint] : constraints) {
        out[key] = constraint;
    }
}

inline void AppendRules(IDataHelper::ValidationRules& out, const IDataHelper::ValidationRules& rules) {
    out.insert(out.end(), rules.begin(), rules.end());
}

}  // namespace Tervan::Conf
