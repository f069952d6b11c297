#pragma once

// The helper queries that fill an out-parameter, as values, and the error a helper
// raises, for the tests' assertions.

#include "Conf/ConfException.h"
#include "Conf/Interfaces/IDataHelper.h"
#include "Core/Property.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

#include <gtest/gtest.h>

#include <functional>
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

// The description of the HelperException that action throws.
inline std::string HelperMessage(const std::function<void()>& action) {
    try {
        action();
    } catch (const Tervan::Conf::HelperException& e) {
        EXPECT_NE(boost::get_error_info<Tervan::Exception::TagCallStack>(e), nullptr);
        const std::string* description = boost::get_error_info<Tervan::Exception::TagDescription>(e);
        return description ? *description : "(no description)";
    }
    ADD_FAILURE() << "no HelperException";
    return {};
}

}  // namespace HelperQueries
