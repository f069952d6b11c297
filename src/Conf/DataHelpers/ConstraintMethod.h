#pragma once

#include "Conf/Interfaces/IPropertyConstraint.h"
#include "Core/Property.h"

#include <boost/function.hpp>
#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Conf {

// Validity decided by a predicate; lists nothing and repairs nothing.
class TERVAN_API ConstraintMethod : public RefCounted<IPropertyConstraint> {
public:
    using Predicate = boost::function<bool(const Core::Property&)>;

    static boost::intrusive_ptr<const IPropertyConstraint> Create(Predicate predicate, const std::string& description);
    static boost::intrusive_ptr<const IPropertyConstraint> CreateEven(const std::string& description);
    static boost::intrusive_ptr<const IPropertyConstraint> CreateAlwaysTrue(const std::string& description);

    // False unless the value is a 64-bit integer with its lowest bit clear.
    static bool IsEven(const Core::Property& value);
    static bool AlwaysTrue(const Core::Property& value);

    void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const override;
    bool IsValid(const Core::Property& value) const override;
    bool Fixup(Core::Property& value) const override;
    std::string Description(const std::string& name) const override;

protected:
    ConstraintMethod(Predicate predicate, std::string description);
    ~ConstraintMethod() override;

private:
    Predicate m_predicate;
    std::string m_description;
};

}  // namespace Tervan::Conf
