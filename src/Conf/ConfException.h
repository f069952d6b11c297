#pragma once

#include "Core/Exception.h"

namespace Tervan::Conf {

class TERVAN_API ConfException : public virtual Exception {};

// Thrown by the registry and by helpers.
class TERVAN_API HelperException : public virtual ConfException {
public:
    using TagClassIsNotFound = boost::error_info<struct TagClassIsNotFoundTag, std::string>;
    using TagClassIsFound = boost::error_info<struct TagClassIsFoundTag, std::string>;
    using TagTypeIsNotFound = boost::error_info<struct TagTypeIsNotFoundTag, std::string>;
};

// An identifier that the vocabulary's record lookups do not know.
class TERVAN_API FormatException : public virtual ConfException {};

class TERVAN_API ConstraintException : public virtual ConfException {
public:
    using TagValueType = boost::error_info<struct TagValueTypeTag, PropertyTypes>;
    using TagConstraintClass = boost::error_info<struct TagConstraintClassTag, std::string>;
};

class TERVAN_API ConstraintIsNotApplicableForTypeException : public ConstraintException {};

// The exception for a constraint of class constraintClass, which judges values of the
// type judged, asked about a value of the type given: both tags and a description.
TERVAN_API ConstraintIsNotApplicableForTypeException NotApplicableForType(const std::string& constraintClass,
                                                                          PropertyTypes judged, PropertyTypes given);

}  // namespace Tervan::Conf
