#pragma once

#include "Core/Api.h"
#include "Core/PropertyTypes.h"

#include <boost/exception/error_info.hpp>
#include <boost/exception/exception.hpp>
#include <boost/exception/get_error_info.hpp>
#include <boost/exception/info.hpp>
#include <boost/throw_exception.hpp>

#include <exception>
#include <string>

namespace Tervan {

class TERVAN_API Exception : public virtual std::exception, public virtual boost::exception {
public:
    using TagDescription = boost::error_info<struct TagDescriptionTag, std::string>;
    using TagCallStack = boost::error_info<struct TagCallStackTag, std::string>;

    // The description when one was attached, otherwise a generic text.
    const char* what() const noexcept override;
};

namespace Core {

class TERVAN_API CoreException : public virtual Exception {};

class TERVAN_API PropertyException : public virtual CoreException {
public:
    using TagMethodName = boost::error_info<struct TagMethodNameTag, std::string>;
    using TagPropertyName = boost::error_info<struct TagPropertyNameTag, std::string>;
    using TagPropertyType = boost::error_info<struct TagPropertyTypeTag, PropertyTypes>;
};

class TERVAN_API MethodIsNotApplicable : public PropertyException {};

// The calling thread's stack, one frame a line.
TERVAN_API std::string GetCallStack();

template <class E>
const E& AddStack(const E& e) {
    e << Exception::TagCallStack(GetCallStack());
    return e;
}

// An E with this description and the calling thread's stack, to be thrown where it is
// made (BOOST_THROW_EXCEPTION records that place).
template <class E>
E Described(const std::string& description) {
    E e;
    e << Exception::TagDescription(description);
    return AddStack(e);
}

}  // namespace Core
}  // namespace Tervan
