#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Property.h"

#include <boost/intrusive_ptr.hpp>

namespace Tervan::Conf {

// A closed interval of doubles or 64-bit integers. The step is offered to consumers
// only and takes no part in validity; 0 means none.
class TERVAN_API ConstraintRange : public RefCounted<IPropertyConstraint> {
public:
    static boost::intrusive_ptr<const IPropertyConstraint> Create(double lo, double hi, double step);
    static boost::intrusive_ptr<const IPropertyConstraint> Create(long long lo, long long hi, long long step);

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override;
    bool IsValid(const Core::Property& value) const override;
    // Clamps an invalid number to the nearer side's bound and still returns false.
    bool Fixup(Core::Property& value) const override;
    std::string Description(const std::string& name) const override;

    PropertyTypes GetValueType() const { return m_type; }
    const Core::Property& GetLowerBound() const { return m_lower; }
    const Core::Property& GetUpperBound() const { return m_upper; }
    const Core::Property& GetStep() const { return m_step; }

protected:
    template <class T>
    ConstraintRange(PropertyTypes type, T lo, T hi, T step);
    ~ConstraintRange() override;

private:
    PropertyTypes m_type;
    Core::Property m_lower;
    Core::Property m_upper;
    Core::Property m_step;
};

}  // namespace Tervan::Conf
