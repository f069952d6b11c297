#include "Core/Exception.h"

#include <boost/stacktrace.hpp>

#include <sstream>

namespace Tervan {

const char* Exception::what() const noexcept {
    if (const std::string* description = boost::get_error_info<TagDescription>(*this)) {
        return description->c_str();
    }
    return "Tervan::Exception";
}

namespace Core {

std::string GetCallStack() {
    std::ostringstream out;
    // Frame 0 is this function itself.
    out << boost::stacktrace::stacktrace(1, static_cast<std::size_t>(-1));
    return out.str();
}

}  // namespace Core
}  // namespace Tervan
