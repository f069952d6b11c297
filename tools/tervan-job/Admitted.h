#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Property.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tervan::Job {

// What a constraint admits, as it tells a consumer: a list of labelled values, a
// range, or nothing (a predicate, which only its description explains).
struct Admitted {
    std::vector<std::pair<std::string, Core::Property>> values;
    std::optional<Core::Property> minimum;
    std::optional<Core::Property> maximum;
    std::optional<Core::Property> step;

    bool IsRange() const { return minimum.has_value() || maximum.has_value(); }
    bool IsEmpty() const { return values.empty() && !IsRange(); }
};

// Asks the constraint through the tool's own IConstraintConsumer.
Admitted Probe(const Conf::IPropertyConstraint& constraint);

// "one of: 44100, 48000", "from 32 to 4096 in steps of 2", or empty.
std::string AdmittedText(const Admitted& admitted);

// The constraint's own description, translated, or else what it admits; name is
// the setting as the helper calls it.
std::string ConstraintText(const Conf::IPropertyConstraint& constraint, const std::string& name);

// A list entry as a person reads it: the label, with the value when it says more.
std::string EntryText(const std::string& label, const Core::Property& value);

}  // namespace Tervan::Job
