#pragma once

// The helper queries that fill an out-parameter, as values, and the error a helper
// raises, for the tests' assertions.

#include "Conf/ConfException.h"
#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/Interfaces/IDataHelper.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IPreset.h"
#include "Core/Property.h"
#include "Proc/IFilterResample.h"
#include "Proc/IResample.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

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

// The labels of a value-set constraint, in order.
using Labels = std::vector<std::string>;
inline const Tervan::Conf::ConstraintSet& AsSet(
    const boost::intrusive_ptr<const Tervan::Conf::IPropertyConstraint>& c) {
    return dynamic_cast<const Tervan::Conf::ConstraintSet&>(*c);
}
inline Labels LabelsOf(const boost::intrusive_ptr<const Tervan::Conf::IPropertyConstraint>& constraint) {
    Labels labels;
    for (const auto& entry : AsSet(constraint).GetEntries()) {
        labels.push_back(entry.first);
    }
    return labels;
}

// A resampler setting's path from the stream node.
inline std::string ResamplerPath(const std::string& tag) {
    const std::string& separator = Tervan::Core::Property::SEPARATOR;
    return Tervan::Proc::IFilterResample::CLASS_ID + separator + Tervan::Proc::IResample::CLASS_ID + separator + tag;
}

// A format's constraint key on the codec of every stream of streamType.
inline std::string StreamCodecKey(const std::string& streamType) {
    using Tervan::Conf::IPreset;
    const std::string& separator = Tervan::Core::Property::SEPARATOR;
    const std::string& section =
        streamType == IPreset::STREAM_TYPE_VIDEO ? IPreset::KEY_FILTER_VIDEO_CODEC : IPreset::KEY_FILTER_AUDIO_CODEC;
    return IPreset::KEY_STREAMS + IPreset::INDEX + streamType + separator + section + separator +
           Tervan::Conf::IFormatCodec::TAG_CODEC_ID;
}

// Values of the type of value, near and far from it, that a repair is tried on.
inline std::vector<Tervan::Core::Property> Probes(const Tervan::Core::Property& value) {
    using Tervan::Core::Property;
    const std::string& name = value.GetName();
    switch (value.GetType()) {
        case Tervan::TYPE_INT64: {
            const long long v = value.GetInt64();
            return {Property(name, v + 1), Property(name, v - 1),
                    Property(name, 0LL),   Property(name, -1LL),
                    Property(name, v / 2), Property(name, std::numeric_limits<long long>::max())};
        }
        case Tervan::TYPE_DOUBLE:
            return {Property(name, value.GetDouble() + 0.5), Property(name, -1.0), Property(name, 1e300)};
        case Tervan::TYPE_STRING:
            return {Property(name, ""), Property(name, "no such value")};
        case Tervan::TYPE_RATIONAL:
            return {Property(name, Property::Ratio(1, 1)), Property(name, Property::Ratio(1000000, 7))};
        case Tervan::TYPE_BOOL:
            return {Property(name, !value.GetBool())};
        default:
            return {};
    }
}

// How many of the helper's constraints its defaults give a value to. Each must admit
// it and keep it through a repair; a repair that reports success must leave an admitted
// value, and one that reports failure must leave the value as it was, except that a
// range deliberately clamps and still reports failure.
inline std::size_t CheckedDefaults(const Tervan::Conf::IDataHelper& helper) {
    const Tervan::Core::Property defaults = helper.GetDefaults();
    std::size_t checked = 0;
    for (const auto& [path, constraint] : ConstraintsOf(helper)) {
        if (!constraint) {
            ADD_FAILURE() << "no constraint object on " << path;
            continue;
        }
        const Tervan::Core::Property* value = defaults.FindChildByPath(path);
        if (value == nullptr) {
            continue;
        }
        SCOPED_TRACE(path);
        EXPECT_TRUE(constraint->IsValid(*value));
        Tervan::Core::Property kept = *value;
        EXPECT_TRUE(constraint->Fixup(kept));
        EXPECT_EQ(kept, *value);
        const bool clamps = dynamic_cast<const Tervan::Conf::ConstraintRange*>(constraint.get()) != nullptr;
        for (const Tervan::Core::Property& probe : Probes(*value)) {
            SCOPED_TRACE(Tervan::Core::PropertyValueToString(probe));
            Tervan::Core::Property repaired = probe;
            if (constraint->Fixup(repaired)) {
                EXPECT_TRUE(constraint->IsValid(repaired)) << Tervan::Core::PropertyValueToString(repaired);
            } else if (!clamps) {
                EXPECT_EQ(repaired, probe);
            }
        }
        ++checked;
    }
    return checked;
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

// Checks that action throws a logic_error whose message is head followed by the call stack.
inline void ExpectLogicError(const std::function<void()>& action, const std::string& head) {
    try {
        action();
        ADD_FAILURE() << "no logic_error";
    } catch (const std::logic_error& e) {
        const std::string what = e.what();
        EXPECT_EQ(what.substr(0, head.size()), head);
        EXPECT_GT(what.size(), head.size()) << "call stack missing";
    }
}

}  // namespace HelperQueries
