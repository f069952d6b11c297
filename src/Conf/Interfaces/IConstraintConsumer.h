#pragma once

#include "Core/RefCount.h"

#include <string>

namespace Tervan::Core {
class Property;
}

namespace Tervan::Conf {

// Receives what a constraint admits: a run of AddValue closed by Commit for a value
// list, or minimum, maximum and step for a range.
class TERVAN_API IConstraintConsumer : public virtual IRefCountable {
public:
    virtual void Reset() = 0;
    virtual void AddValue(const std::string& label, const Core::Property& value) = 0;
    virtual void Commit() = 0;
    virtual void SetMaxValue(double value) = 0;
    virtual void SetMaxValue(long long value) = 0;
    virtual void SetMinValue(double value) = 0;
    virtual void SetMinValue(long long value) = 0;
    virtual void SetStep(double value) = 0;
    virtual void SetStep(long long value) = 0;
};

}  // namespace Tervan::Conf
