#include "JobJson.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <set>
#include <system_error>
#include <vector>

namespace Tervan::Job {

const char* const RATIONAL_KEY = "$rational";

namespace {

constexpr std::size_t DISPLAY_WIDTH = 60;

std::string Join(const std::string& path, const std::string& name) {
    return path.empty() ? name : path + "/" + name;
}

std::string Where(const std::string& path) {
    return path.empty() ? "the document" : path;
}

// nlohmann prefixes its messages with "[json.exception.parse_error.101] "; a person needs the rest.
std::string WithoutExceptionId(const std::string& message) {
    if (!message.empty() && message.front() == '[') {
        const std::string::size_type end = message.find("] ");
        if (end != std::string::npos) {
            return message.substr(end + 2);
        }
    }
    return message;
}

// Reads a document before it is built, so that refusals name the place: too deep,
// too wide, a repeated key, and a number no setting can hold. An integer beyond 64
// bits would otherwise be built as a double.
class ParseGuard : public nlohmann::json_sax<Json> {
public:
    explicit ParseGuard(const std::string& root) : m_root(root) {}

    bool null() override { return true; }
    bool boolean(bool /*value*/) override { return true; }
    bool number_integer(number_integer_t /*value*/) override { return true; }
    bool number_unsigned(number_unsigned_t /*value*/) override { return true; }
    bool number_float(number_float_t /*value*/, const string_t& literal) override {
        if (literal.find_first_of(".eE") == string_t::npos) {
            throw InputError(Where(Path()), "integer out of the signed 64-bit range");
        }
        return true;
    }
    bool string(string_t& /*value*/) override { return true; }
    bool binary(binary_t& /*value*/) override { return true; }
    bool start_object(std::size_t /*elements*/) override { return Enter(); }
    bool end_object() override { return Leave(); }
    bool start_array(std::size_t /*elements*/) override { return Enter(); }
    bool end_array() override { return Leave(); }
    bool key(string_t& key) override {
        m_segments.back() = key;
        if (!m_keys.back().insert(key).second) {
            throw InputError(Path(), "duplicate key; every name in an object must be unique");
        }
        if (m_keys.back().size() > JsonLimits::MAX_CHILDREN) {
            throw InputError(Where(Path()),
                             "more than " + std::to_string(JsonLimits::MAX_CHILDREN) + " members in one object");
        }
        return true;
    }
    bool parse_error(std::size_t /*position*/, const std::string& /*token*/, const Json::exception& error) override {
        // nlohmann's id for a number that overflows a double.
        constexpr int kNumberOverflow = 406;
        if (error.id == kNumberOverflow) {
            throw InputError(Where(Path()), "number out of the floating-point range");
        }
        throw InputError("", "malformed JSON: " + WithoutExceptionId(error.what()));
    }

private:
    bool Enter() {
        if (m_segments.size() >= JsonLimits::MAX_DEPTH) {
            throw InputError(Where(Path()), "nested deeper than " + std::to_string(JsonLimits::MAX_DEPTH) + " levels");
        }
        m_segments.emplace_back();
        m_keys.emplace_back();
        return true;
    }

    bool Leave() {
        m_segments.pop_back();
        m_keys.pop_back();
        return true;
    }

    // Inside the root member, paths start from it, as the settings' paths do everywhere.
    std::string Path() const {
        const bool inRoot = m_segments.size() > 1 && !m_root.empty() && m_segments.front() == m_root;
        std::string path;
        for (auto segment = m_segments.begin() + (inRoot ? 1 : 0); segment != m_segments.end(); ++segment) {
            if (!segment->empty()) {
                path = Join(path, *segment);
            }
        }
        return path;
    }

    const std::string m_root;
    std::vector<std::string> m_segments;
    std::vector<std::set<std::string>> m_keys;
};

[[noreturn]] void ThrowBadRational(const std::string& path) {
    throw InputError(path, std::string("expected {\"") + RATIONAL_KEY +
                               "\": [numerator, denominator]} with two 64-bit integers and a non-zero denominator");
}

long long RationalTerm(const Json& term, const std::string& path) {
    // The most negative value has no positive counterpart, which normalising needs.
    const bool representable =
        term.is_number_unsigned()
            ? term.get<std::uint64_t>() <= std::uint64_t(std::numeric_limits<long long>::max())
            : term.is_number_integer() && term.get<std::int64_t>() != std::numeric_limits<std::int64_t>::min();
    if (!representable) {
        ThrowBadRational(path);
    }
    return term.get<long long>();
}

bool IsRationalForm(const Json& value) {
    return value.is_object() && value.contains(RATIONAL_KEY);
}

Core::Property RationalFromJson(const Json& value, const std::string& name, const std::string& path) {
    const Json& terms = value.at(RATIONAL_KEY);
    if (value.size() != 1 || !terms.is_array() || terms.size() != 2) {
        ThrowBadRational(path);
    }
    const long long numerator = RationalTerm(terms[0], path);
    const long long denominator = RationalTerm(terms[1], path);
    if (denominator == 0) {
        ThrowBadRational(path);
    }
    return Core::Property(name, Core::Property::Ratio(numerator, denominator));
}

void CheckName(const std::string& name, const std::string& path) {
    if (name.empty()) {
        throw InputError(path, "a setting name must not be empty");
    }
    if (name.find(Core::Property::SEPARATOR) != std::string::npos) {
        throw InputError(path, "a setting name must not contain \"" + Core::Property::SEPARATOR + "\"");
    }
    if (name.front() == '$') {
        throw InputError(path, "names beginning with \"$\" are reserved; a rational is written {\"" +
                                   std::string(RATIONAL_KEY) + "\": [numerator, denominator]}");
    }
}

std::string Compact(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// An object of plain values inside a list, such as {"label": "cbr", "value": "cbr"}, short enough for one line.
bool IsShortRecord(const Json& value) {
    constexpr std::size_t width = 80;
    if (!value.is_object()) {
        return false;
    }
    for (const auto& member : value.items()) {
        if (member.value().is_structured() && !IsRationalForm(member.value())) {
            return false;
        }
    }
    return Compact(value).size() < width;
}

bool IsScalarList(const Json& value) {
    return std::none_of(value.begin(), value.end(), [](const Json& element) { return element.is_structured(); });
}

// Two-space indentation, like nlohmann's, except that rationals and lists of plain
// values stay on one line: a frame rate reads {"$rational": [25, 1]}.
void Write(const Json& value, std::size_t depth, std::string& out) {
    const std::string indent(2 * (depth + 1), ' ');
    if (IsRationalForm(value) && value.size() == 1) {
        out += "{" + Compact(RATIONAL_KEY) + ": ";
        Write(value.at(RATIONAL_KEY), depth, out);
        out += "}";
    } else if (value.is_object() && !value.empty()) {
        out += "{\n";
        std::size_t left = value.size();
        for (const auto& member : value.items()) {
            out += indent + Compact(member.key()) + ": ";
            Write(member.value(), depth + 1, out);
            out += --left == 0 ? "\n" : ",\n";
        }
        out += std::string(2 * depth, ' ') + "}";
    } else if (value.is_array() && !value.empty() && !IsScalarList(value)) {
        out += "[\n";
        for (std::size_t i = 0; i < value.size(); ++i) {
            out += indent;
            if (IsShortRecord(value[i])) {
                std::size_t left = value[i].size();
                out += "{";
                for (const auto& member : value[i].items()) {
                    out += Compact(member.key()) + ": ";
                    Write(member.value(), depth + 1, out);
                    out += --left == 0 ? "" : ", ";
                }
                out += "}";
            } else {
                Write(value[i], depth + 1, out);
            }
            out += i + 1 == value.size() ? "\n" : ",\n";
        }
        out += std::string(2 * depth, ' ') + "]";
    } else if (value.is_array()) {
        out += "[";
        for (std::size_t i = 0; i < value.size(); ++i) {
            out += (i == 0 ? "" : ", ") + Compact(value[i]);
        }
        out += "]";
    } else {
        out += Compact(value);
    }
}

}  // namespace

std::string OneLine(const std::string& text) {
    const bool plain =
        std::none_of(text.begin(), text.end(), [](char c) { return std::iscntrl(static_cast<unsigned char>(c)); });
    if (plain) {
        return text;
    }
    std::string line;
    for (const char c : text) {
        if (std::iscntrl(static_cast<unsigned char>(c))) {
            // The JSON library's escape for one character, without its quotes.
            const std::string escaped = Json(std::string(1, c)).dump();
            line += escaped.substr(1, escaped.size() - 2);
        } else {
            line += c;
        }
    }
    return line;
}

InputError::InputError(const std::string& where, const std::string& message)
    : std::runtime_error(OneLine(where.empty() ? message : where + ": " + message)) {}

Json ParseJson(const std::string& text, const std::string& root) {
    if (text.size() > JsonLimits::MAX_BYTES) {
        throw InputError("", "document too large: " + std::to_string(text.size()) + " bytes, at most " +
                                 std::to_string(JsonLimits::MAX_BYTES));
    }
    ParseGuard guard(root);
    Json::sax_parse(text, &guard);
    return Json::parse(text);
}

std::string ReadTextFile(const std::string& file) {
    std::ifstream stream;
    std::istream* in = &std::cin;
    if (file != "-") {
        std::error_code error;
        if (std::filesystem::is_directory(file, error)) {
            throw InputError(file, "is a directory, expected a JSON file");
        }
        errno = 0;
        stream.open(file, std::ios::binary);
        if (!stream) {
            // The stream keeps no reason; the open it made left one in errno.
            const int reason = errno;
            throw InputError(file, reason != 0 ? "cannot be read: " + std::generic_category().message(reason)
                                               : std::string("cannot be read"));
        }
        in = &stream;
    }
    // One byte more than allowed is enough to refuse an oversized file without reading it all.
    std::string text;
    char buffer[65536];
    while (text.size() <= JsonLimits::MAX_BYTES && in->read(buffer, sizeof buffer).gcount() > 0) {
        text.append(buffer, static_cast<std::size_t>(in->gcount()));
    }
    if (in->bad()) {
        throw InputError(file, "cannot be read");
    }
    return text;
}

Core::Property PropertyFromJson(const Json& value, const std::string& name, const std::string& path) {
    switch (value.type()) {
        case Json::value_t::boolean:
            return Core::Property(name, value.get<bool>());
        case Json::value_t::number_integer:
            return Core::Property(name, value.get<long long>());
        case Json::value_t::number_unsigned:
            if (value.get<std::uint64_t>() > std::uint64_t(std::numeric_limits<long long>::max())) {
                throw InputError(path, "integer out of the signed 64-bit range");
            }
            return Core::Property(name, value.get<long long>());
        case Json::value_t::number_float:
            if (!std::isfinite(value.get<double>())) {
                throw InputError(path, "number out of the floating-point range");
            }
            return Core::Property(name, value.get<double>());
        case Json::value_t::string:
            return Core::Property(name, value.get_ref<const std::string&>());
        case Json::value_t::object: {
            if (IsRationalForm(value)) {
                return RationalFromJson(value, name, path);
            }
            Core::Property container(name);
            for (const auto& member : value.items()) {
                const std::string childPath = Join(path, member.key());
                CheckName(member.key(), childPath);
                container.SetChild(member.key(), PropertyFromJson(member.value(), member.key(), childPath));
            }
            return container;
        }
        case Json::value_t::array:
            throw InputError(Where(path), std::string("expected a value or an object; arrays appear only in {\"") +
                                              RATIONAL_KEY + "\": [numerator, denominator]}");
        case Json::value_t::null:
        case Json::value_t::binary:
        case Json::value_t::discarded:
            break;
    }
    throw InputError(Where(path), "expected a value or an object, found null");
}

Json JsonFromProperty(const Core::Property& property) {
    switch (property.GetType()) {
        case TYPE_BOOL:
            return property.GetBool();
        case TYPE_DOUBLE:
            return property.GetDouble();
        case TYPE_INT64:
            return property.GetInt64();
        case TYPE_STRING:
            return property.GetString();
        case TYPE_RATIONAL: {
            const Core::Property::Ratio ratio = property.GetRatio();
            return Json{{RATIONAL_KEY, Json::array({ratio.numerator(), ratio.denominator()})}};
        }
        case TYPE_CONTAINER:
            break;
    }
    Json object = Json::object();
    for (const Core::Property& child : property) {
        object[child.GetName()] = JsonFromProperty(child);
    }
    return object;
}

std::string DumpJson(const Json& value) {
    std::string text;
    Write(value, 0, text);
    return text + "\n";
}

std::string DisplayValue(const Core::Property& property) {
    if (property.GetType() == TYPE_RATIONAL) {
        return Core::PropertyValueToString(property);
    }
    std::string text = JsonFromProperty(property).dump(-1, ' ', false, Json::error_handler_t::replace);
    if (text.size() > DISPLAY_WIDTH) {
        text.resize(DISPLAY_WIDTH - 3);
        text += "...";
    }
    return text;
}

std::string TypeName(PropertyTypes type) {
    switch (type) {
        case TYPE_BOOL:
            return "a boolean";
        case TYPE_DOUBLE:
            return "a floating-point number";
        case TYPE_INT64:
            return "an integer";
        case TYPE_STRING:
            return "a string";
        case TYPE_RATIONAL:
            return std::string("a rational {\"") + RATIONAL_KEY + "\": [numerator, denominator]}";
        case TYPE_CONTAINER:
            break;
    }
    return "an object";
}

}  // namespace Tervan::Job
