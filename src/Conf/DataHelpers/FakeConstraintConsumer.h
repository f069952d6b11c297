#pragma once

#include "Conf/Interfaces/IConstraintConsumer.h"
#include "Core/Property.h"

#include <boost/any.hpp>
#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// A consumer that reads back what a constraint offers as one property: the offered
// values (labels as child names), or a range's "minValue", "midValue", "maxValue".
class TERVAN_API FakeConstraintConsumer : public RefCounted<IConstraintConsumer> {
public:
    static const std::string MIN_VALUE, MID_VALUE, MAX_VALUE;

    static boost::intrusive_ptr<FakeConstraintConsumer> Create();

    void Reset() override;
    void AddValue(const std::string& label, const Core::Property& value) override;
    void Commit() override;
    void SetMaxValue(double value) override;
    void SetMaxValue(long long value) override;
    void SetMinValue(double value) override;
    void SetMinValue(long long value) override;
    void SetStep(double value) override;
    void SetStep(long long value) override;

    // Throws boost::bad_any_cast when no range of the recorded type was given.
    virtual Core::Property GetValue() const;
    virtual void SetValue(const Core::Property& value);

protected:
    FakeConstraintConsumer();
    ~FakeConstraintConsumer() override;

private:
    boost::any m_minimum;
    boost::any m_maximum;
    long long m_step = 0;
    Core::Property m_values;
    PropertyTypes m_rangeType = TYPE_INT64;
};

}  // namespace Tervan::Conf
