#pragma once

#include "Conf/Interfaces/IConstraintConsumer.h"
#include "Core/RefCount.h"

#include <boost/intrusive_ptr.hpp>

#include <string>

namespace Tervan::Core {
class Property;
}

namespace Tervan::Conf {

// The admissible values of one setting. Immutable and shared across threads.
class TERVAN_API IPropertyConstraint : public virtual IRefCountable {
public:
    // The description of the even-number constraint; translate it for display.
    static const std::string DESCRIPTION_ID_EVEN_SIZE;

    virtual void FillValueList(const boost::intrusive_ptr<IConstraintConsumer>& consumer) const = 0;
    virtual bool IsValid(const Core::Property& value) const = 0;
    // True when the value is (now) acceptable; false when nothing was changed.
    virtual bool Fixup(Core::Property& value) const = 0;
    virtual std::string Description(const std::string& name) const = 0;
};

using ConstraintPtr = boost::intrusive_ptr<const IPropertyConstraint>;

}  // namespace Tervan::Conf
