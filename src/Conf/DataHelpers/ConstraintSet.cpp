#include "Conf/DataHelpers/ConstraintSet.h"

#include "Conf/ConfException.h"
#include "Core/Localization.h"

#include <boost/algorithm/string/replace.hpp>

#include <algorithm>
#include <cmath>

namespace Tervan::Conf {
namespace {

// A rational with a denominator that is not positive reads as 0.0.
double AsDouble(const Core::Property& value) {
    if (value.GetType() == TYPE_RATIONAL) {
        const auto ratio = value.GetRatio();
        return ratio.denominator() > 0
                   ? static_cast<double>(ratio.numerator()) / static_cast<double>(ratio.denominator())
                   : 0.0;
    }
    return value.GetDouble();
}

double Distance(PropertyTypes type, const Core::Property& entry, const Core::Property& value) {
    if (type == TYPE_INT64) {
        // Taken in 64-bit integers (unsigned, so that no difference overflows), then converted.
        const long long a = entry.GetInt64();
        const long long b = value.GetInt64();
        const unsigned long long difference =
            a >= b ? static_cast<unsigned long long>(a) - static_cast<unsigned long long>(b)
                   : static_cast<unsigned long long>(b) - static_cast<unsigned long long>(a);
        return static_cast<double>(difference);
    }
    return std::fabs(AsDouble(entry) - AsDouble(value));
}

}  // namespace

template <class T>
ConstraintSet::ConstraintSet(PropertyTypes type, const PairList<T>& values) : m_type(type) {
    m_entries.reserve(values.size());
    for (const auto& [label, value] : values) {
        m_entries.emplace_back(label, Core::Property(std::string(), value));
    }
}

ConstraintSet::ConstraintSet(PropertyTypes type, const PairList<Core::Property>& values)
    : m_type(type), m_entries(values) {}

ConstraintSet::~ConstraintSet() = default;

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSet::Create(const PairList<bool>& values) {
    return new ConstraintSet(TYPE_BOOL, values);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSet::Create(const PairList<double>& values) {
    return new ConstraintSet(TYPE_DOUBLE, values);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSet::Create(const PairList<long long>& values) {
    return new ConstraintSet(TYPE_INT64, values);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSet::Create(const PairList<std::string>& values) {
    return new ConstraintSet(TYPE_STRING, values);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSet::Create(
    const PairList<boost::rational<long long>>& values) {
    return new ConstraintSet(TYPE_RATIONAL, values);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSet::Create(PropertyTypes type,
                                                                      const PairList<Core::Property>& values) {
    return new ConstraintSet(type, values);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintSet::Create(PropertyTypes type, const Core::Property& list) {
    PairList<Core::Property> values;
    values.reserve(list.Count());
    for (const Core::Property& child : list) {
        values.emplace_back(child.GetName(), child);
    }
    return new ConstraintSet(type, values);
}

void ConstraintSet::FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const {
    for (const auto& [label, value] : m_entries) {
        consumer->AddValue(label, value);
    }
    consumer->Commit();
}

bool ConstraintSet::IsValid(const Core::Property& value) const {
    if (value.GetType() != m_type) {
        BOOST_THROW_EXCEPTION(NotApplicableForType("ConstraintSet", m_type, value.GetType()));
    }
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [&value](const auto& entry) { return entry.second == value; });
}

bool ConstraintSet::Fixup(Core::Property& value) const {
    if (m_entries.empty()) {
        return false;
    }
    if (IsValid(value)) {
        return true;
    }
    if (m_type != TYPE_DOUBLE && m_type != TYPE_INT64 && m_type != TYPE_RATIONAL) {
        return false;
    }
    if (value.GetType() != m_type) {
        return false;
    }
    // min_element keeps the first of equals: on a tie the earlier entry wins.
    const auto nearest = std::min_element(m_entries.begin(), m_entries.end(), [&](const auto& a, const auto& b) {
        return Distance(m_type, a.second, value) < Distance(m_type, b.second, value);
    });
    value.CopyDataFrom(nearest->second);
    return true;
}

std::string ConstraintSet::Description(const std::string& name) const {
    std::string text =
        Core::GetLocalizationManagerForDomain("core").Translate("Parameter %1 must be one of the following values: %2");
    boost::algorithm::replace_all(text, "%1", name);
    if (m_entries.empty()) {
        return text;
    }
    std::string labels;
    for (const auto& entry : m_entries) {
        labels += entry.first + " ";
    }
    boost::algorithm::replace_all(text, "%2", labels);
    return text;
}

}  // namespace Tervan::Conf
