#include "Conf/DataHelpers/ConstraintRange.h"

#include "Conf/ConfException.h"

namespace Tervan::Conf {
namespace {

[[noreturn]] void ThrowNotApplicable(PropertyTypes type) {
    BOOST_THROW_EXCEPTION(ConstraintIsNotApplicableForTypeException()
                          << ConstraintException::TagConstraintClass("ConstraintRange")
                          << ConstraintException::TagValueType(type));
}

}  // namespace

template <class T>
ConstraintRange::ConstraintRange(PropertyTypes type, T lo, T hi, T step)
    : m_type(type), m_lower("loBound", lo), m_upper("hiBound", hi), m_step("step", step) {}

ConstraintRange::~ConstraintRange() = default;

boost::intrusive_ptr<const IPropertyConstraint> ConstraintRange::Create(double lo, double hi, double step) {
    return new ConstraintRange(TYPE_DOUBLE, lo, hi, step);
}

boost::intrusive_ptr<const IPropertyConstraint> ConstraintRange::Create(long long lo, long long hi, long long step) {
    return new ConstraintRange(TYPE_INT64, lo, hi, step);
}

bool ConstraintRange::IsValid(const Core::Property& value) const {
    switch (m_type) {
        case TYPE_INT64: {
            const long long v = value.GetInt64();
            return m_lower.GetInt64() <= v && v <= m_upper.GetInt64();
        }
        case TYPE_DOUBLE: {
            const double v = value.GetDouble();
            return v >= m_lower.GetDouble() && m_upper.GetDouble() >= v;
        }
        default:
            ThrowNotApplicable(m_type);
    }
}

bool ConstraintRange::Fixup(Core::Property& value) const {
    if (value.GetType() != TYPE_DOUBLE && value.GetType() != TYPE_INT64) {
        return false;
    }
    if (IsValid(value)) {
        return true;
    }
    if (m_type == TYPE_DOUBLE) {
        value.CopyDataFrom(m_lower.GetDouble() > value.GetDouble() ? m_lower : m_upper);
    }
    // A double range falls through to the integer step on purpose, reading the clamped value.
    if (m_type == TYPE_DOUBLE || m_type == TYPE_INT64) {
        value.CopyDataFrom(value.GetInt64() < m_lower.GetInt64() ? m_lower : m_upper);
    }
    // False even after clamping: the caller decides whether a bound is an acceptable repair.
    return false;
}

void ConstraintRange::FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const {
    switch (m_type) {
        case TYPE_DOUBLE:
            consumer->SetMinValue(m_lower.GetDouble());
            consumer->SetMaxValue(m_upper.GetDouble());
            if (m_step.GetDouble() != 0.0) {
                consumer->SetStep(m_step.GetDouble());
            }
            break;
        case TYPE_INT64:
            consumer->SetMinValue(m_lower.GetInt64());
            consumer->SetMaxValue(m_upper.GetInt64());
            if (m_step.GetInt64() != 0) {
                consumer->SetStep(m_step.GetInt64());
            }
            break;
        default:
            ThrowNotApplicable(m_type);
    }
}

std::string ConstraintRange::Description(const std::string& /*name*/) const {
    return {};
}

}  // namespace Tervan::Conf
