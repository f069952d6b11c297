#include "Conf/ConfException.h"

namespace Tervan::Conf {

ConstraintIsNotApplicableForTypeException NotApplicableForType(const std::string& constraintClass, PropertyTypes judged,
                                                               PropertyTypes given) {
    ConstraintIsNotApplicableForTypeException e;
    e << ConstraintException::TagConstraintClass(constraintClass) << ConstraintException::TagValueType(judged)
      << Exception::TagDescription(constraintClass + " judges values of the type " + PropertyTypeName(judged) +
                                   ", not of the type " + PropertyTypeName(given));
    return e;
}

}  // namespace Tervan::Conf
