#include "Conf/DataHelpers/FakeConstraintConsumer.h"

#include "Core/Api.h"

namespace Tervan::Conf {

TERVAN_CONSTANT const std::string FakeConstraintConsumer::MIN_VALUE = "minValue";
TERVAN_CONSTANT const std::string FakeConstraintConsumer::MID_VALUE = "midValue";
TERVAN_CONSTANT const std::string FakeConstraintConsumer::MAX_VALUE = "maxValue";

FakeConstraintConsumer::FakeConstraintConsumer() = default;

FakeConstraintConsumer::~FakeConstraintConsumer() = default;

boost::intrusive_ptr<FakeConstraintConsumer> FakeConstraintConsumer::Create() {
    return new FakeConstraintConsumer();
}

void FakeConstraintConsumer::Reset() {
    m_values.RemoveAll();
    m_minimum = boost::any();
    m_maximum = boost::any();
}

void FakeConstraintConsumer::AddValue(const std::string& label, const Core::Property& value) {
    m_values.SetChild(label, value);
}

void FakeConstraintConsumer::Commit() {}

void FakeConstraintConsumer::SetMaxValue(double value) {
    m_maximum = value;
    m_rangeType = TYPE_DOUBLE;
}

void FakeConstraintConsumer::SetMaxValue(long long value) {
    m_maximum = value;
    m_rangeType = TYPE_INT64;
}

void FakeConstraintConsumer::SetMinValue(double value) {
    m_minimum = value;
    m_rangeType = TYPE_DOUBLE;
}

void FakeConstraintConsumer::SetMinValue(long long value) {
    m_minimum = value;
    m_rangeType = TYPE_INT64;
}

// A double range keeps no step on purpose: its middle is never snapped.
void FakeConstraintConsumer::SetStep(double /*value*/) {}

void FakeConstraintConsumer::SetStep(long long value) {
    m_step = value;
}

Core::Property FakeConstraintConsumer::GetValue() const {
    if (m_values.GetType() != TYPE_CONTAINER || !m_values.GetName().empty() || m_values.Count() > 0) {
        return m_values;
    }
    Core::Property result;
    if (m_rangeType == TYPE_INT64) {
        const auto minimum = boost::any_cast<long long>(m_minimum);
        const auto maximum = boost::any_cast<long long>(m_maximum);
        long long middle = (minimum + maximum) / 2;
        if (m_step != 0) {
            // Onto the grid that starts at the minimum.
            middle = (minimum % m_step) + middle - (middle % m_step);
        }
        result.SetChildT(MIN_VALUE, minimum);
        result.SetChildT(MID_VALUE, middle);
        result.SetChildT(MAX_VALUE, maximum);
    } else {
        const auto minimum = boost::any_cast<double>(m_minimum);
        const auto maximum = boost::any_cast<double>(m_maximum);
        result.SetChildT(MIN_VALUE, minimum);
        result.SetChildT(MID_VALUE, (minimum + maximum) * 0.5);
        result.SetChildT(MAX_VALUE, maximum);
    }
    return result;
}

void FakeConstraintConsumer::SetValue(const Core::Property& /*value*/) {}

}  // namespace Tervan::Conf
