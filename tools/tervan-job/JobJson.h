#pragma once

#include "Core/Property.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace Tervan::Job {

using Json = nlohmann::ordered_json;

// text with its control characters escaped as JSON escapes them ("\n"), so that a
// name holding a line break still reports on one line.
std::string OneLine(const std::string& text);

// Input the tool refuses: the message names where (a file, or a path inside the
// settings) and what was expected. Always one line.
class InputError : public std::runtime_error {
public:
    InputError(const std::string& where, const std::string& message);
};

// Documents beyond these are refused rather than processed slowly or deeply.
struct JsonLimits {
    static constexpr std::size_t MAX_BYTES = 8u << 20;
    static constexpr std::size_t MAX_DEPTH = 32;
    static constexpr std::size_t MAX_CHILDREN = 1000;
};

// A rational is written {"$rational": [numerator, denominator]}; names beginning
// with "$" are reserved for such forms.
extern const char* const RATIONAL_KEY;

// Parses JSON text, refusing duplicate keys, integers beyond 64 bits, numbers beyond
// a double and documents beyond JsonLimits. Refusals inside the top-level member root
// name their place from it.
Json ParseJson(const std::string& text, const std::string& root);
// The whole file ("-" reads standard input).
std::string ReadTextFile(const std::string& file);

// The settings node called name; path names the value in errors.
Core::Property PropertyFromJson(const Json& value, const std::string& name, const std::string& path);
Json JsonFromProperty(const Core::Property& property);

// Two-space indented text with a final newline.
std::string DumpJson(const Json& value);
// A value as one short line for messages: strings quoted, rationals as n/d.
std::string DisplayValue(const Core::Property& property);
// "an integer", "a string", ... for messages.
std::string TypeName(PropertyTypes type);

}  // namespace Tervan::Job
