#pragma once

// The helper queries that fill an out-parameter, as values, for the tests' assertions.

#include "Conf/Interfaces/IDataHelper.h"
#include "Core/Property.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

#include <string>

namespace HelperQueries {

inline Tervan::Conf::IDataHelper::Constraints ConstraintsOf(const Tervan::Conf::IDataHelper& helper) {
    Tervan::Conf::IDataHelper::Constraints constraints;
    helper.GetConstraints(constraints);
    return constraints;
}

inline Tervan::Conf::IDataHelper::ValidationRules RulesOf(const Tervan::Conf::IDataHelper& helper) {
    Tervan::Conf::IDataHelper::ValidationRules rules;
    helper.GetValidationRules(rules);
    return rules;
}

// A resampler setting's path from the stream node.
inline std::string ResamplerPath(const std::string& tag) {
    const std::string& separator = Tervan::Core::Property::SEPARATOR;
    return Tervan::Proc::IFilterResample::CLASS_ID + separator + Tervan::Proc::IResample::CLASS_ID + separator + tag;
}

}  // namespace HelperQueries
