#pragma once

#include "Core/Api.h"

namespace Tervan {

// The numbers are part of the contract: constraints report them in exceptions.
enum PropertyTypes {
    TYPE_BOOL = 1,
    TYPE_DOUBLE = 2,
    TYPE_INT64 = 3,
    TYPE_STRING = 4,
    TYPE_RATIONAL = 5,
    TYPE_CONTAINER = 6,
};

// "bool", "double", "int64", "string", "rational" or "container", for messages.
TERVAN_API const char* PropertyTypeName(PropertyTypes type);

enum MediaType {
    MEDIA_TYPE_VIDEO = 1,
    MEDIA_TYPE_AUDIO = 2,
};

}  // namespace Tervan
