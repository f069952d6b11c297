#include "Core/Property.h"

#include "Core/Api.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <string_view>

namespace Tervan::Core {

namespace {
// Known to the compiler, so that a path is split by a search for one character.
constexpr std::string_view kSeparator = "/";
constexpr std::size_t MIN_CAPACITY = 8;

template <class Word>
Word Load(const char* bytes) {
    Word word{};
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

// Whether two names of the same length are equal. Names are short: the two loads of a
// word's width from each end (overlapping when the name is shorter than two words)
// cover them without a call to memcmp, which a child search would make for every
// sibling of the same length.
bool SameBytes(const char* a, const char* b, std::size_t size) {
    if (size >= 8 && size <= 16) {
        return Load<std::uint64_t>(a) == Load<std::uint64_t>(b) &&
               Load<std::uint64_t>(a + size - 8) == Load<std::uint64_t>(b + size - 8);
    }
    if (size >= 4 && size < 8) {
        return Load<std::uint32_t>(a) == Load<std::uint32_t>(b) &&
               Load<std::uint32_t>(a + size - 4) == Load<std::uint32_t>(b + size - 4);
    }
    return std::memcmp(a, b, size) == 0;
}
}  // namespace

TERVAN_CONSTANT const std::string Property::SEPARATOR{kSeparator};

Property::Property() = default;

Property::Property(const std::string& name) : m_name(name) {}

Property::Property(const std::string& name, bool value) : m_name(name), m_value(value) {}

Property::Property(const std::string& name, double value) : m_name(name), m_value(value) {}

Property::Property(const std::string& name, long long value) : m_name(name), m_value(value) {}

Property::Property(const std::string& name, const std::string& value) : m_name(name), m_value(value) {}

Property::Property(const std::string& name, const char* value) : m_name(name), m_value(std::string(value)) {}

Property::Property(const std::string& name, const Ratio& value) : m_name(name), m_value(value) {}

Property& Property::AssignValue(Value value) {
    m_children.clear();
    m_value = std::move(value);
    return *this;
}

Property& Property::operator=(bool value) {
    return AssignValue(value);
}
Property& Property::operator=(long long value) {
    return AssignValue(value);
}
Property& Property::operator=(double value) {
    return AssignValue(value);
}
Property& Property::operator=(const std::string& value) {
    return AssignValue(value);
}
Property& Property::operator=(const char* value) {
    return AssignValue(std::string(value));
}
Property& Property::operator=(const Ratio& value) {
    return AssignValue(value);
}

PropertyTypes Property::GetType() const {
    static constexpr std::array<PropertyTypes, 6> byIndex = {TYPE_CONTAINER, TYPE_BOOL,   TYPE_DOUBLE,
                                                             TYPE_INT64,     TYPE_STRING, TYPE_RATIONAL};
    return byIndex[m_value.index()];
}

MethodIsNotApplicable Property::NotApplicable(const char* method) const {
    MethodIsNotApplicable e;
    e << PropertyException::TagMethodName(method) << PropertyException::TagPropertyName(m_name)
      << PropertyException::TagPropertyType(GetType())
      << Exception::TagDescription("Property '" + m_name + "' holds a value of the type " +
                                   PropertyTypeName(GetType()) + ", so " + method + " cannot give it children");
    AddStack(e);
    return e;
}

PropertyException Property::Beyond64Bits(const std::string& name, unsigned long long value) {
    PropertyException e;
    e << PropertyException::TagPropertyName(name)
      << Exception::TagDescription("Property '" + name + "' cannot hold " + std::to_string(value) +
                                   ": beyond the 64-bit integers it stores");
    AddStack(e);
    return e;
}

PropertyException Property::WrongType(const char* method) const {
    PropertyException e;
    e << PropertyException::TagMethodName(method) << PropertyException::TagPropertyName(m_name)
      << PropertyException::TagPropertyType(GetType())
      << Exception::TagDescription("Property '" + m_name + "' does not hold a value of the type " + method + " reads");
    return e;
}

bool Property::GetBool() const {
    if (const bool* v = std::get_if<bool>(&m_value)) {
        return *v;
    }
    BOOST_THROW_EXCEPTION(WrongType("GetBool"));
}

long long Property::GetInt64() const {
    if (const long long* v = std::get_if<long long>(&m_value)) {
        return *v;
    }
    if (const double* v = std::get_if<double>(&m_value)) {
        // Truncated toward zero; beyond the integers' range the nearest end, not undefined behaviour.
        constexpr double kLimit = 9223372036854775808.0;  // 2^63
        if (std::isnan(*v)) {
            BOOST_THROW_EXCEPTION(WrongType("GetInt64"));
        }
        if (*v >= kLimit) {
            return std::numeric_limits<long long>::max();
        }
        if (*v < -kLimit) {
            return std::numeric_limits<long long>::min();
        }
        return static_cast<long long>(*v);
    }
    if (const Ratio* v = std::get_if<Ratio>(&m_value)) {
        return boost::rational_cast<long long>(*v);
    }
    BOOST_THROW_EXCEPTION(WrongType("GetInt64"));
}

double Property::GetDouble() const {
    if (const double* v = std::get_if<double>(&m_value)) {
        return *v;
    }
    if (const long long* v = std::get_if<long long>(&m_value)) {
        return static_cast<double>(*v);
    }
    if (const Ratio* v = std::get_if<Ratio>(&m_value)) {
        return boost::rational_cast<double>(*v);
    }
    BOOST_THROW_EXCEPTION(WrongType("GetDouble"));
}

const std::string& Property::GetString() const {
    if (const std::string* v = std::get_if<std::string>(&m_value)) {
        return *v;
    }
    BOOST_THROW_EXCEPTION(WrongType("GetString"));
}

Property::Ratio Property::GetRatio() const {
    if (const Ratio* v = std::get_if<Ratio>(&m_value)) {
        return *v;
    }
    if (const long long* v = std::get_if<long long>(&m_value)) {
        return Ratio(*v);
    }
    BOOST_THROW_EXCEPTION(WrongType("GetRatio"));
}

Property& Property::SetChild(const std::string& name) {
    return SetChild(name, Property(name));
}

Property& Property::SetChild(const std::string& name, const Property& value) {
    // Copy first: value may be a descendant of the child being replaced.
    return SetChild(name, Property(value));
}

Property& Property::SetChild(const std::string& name, Property&& value) {
    if (GetType() != TYPE_CONTAINER) {
        BOOST_THROW_EXCEPTION(NotApplicable("SetChild"));
    }
    Property* child = FindChild(name);
    const std::less<const Property*> before;
    const bool ownChild = !before(&value, m_children.data()) && before(&value, m_children.data() + m_children.size());
    if (child == nullptr && !ownChild && &value != this) {
        // Growing moves only this node's own children, so any other value can go in as it is.
        value.m_name = name;
        return AppendChild(std::move(value));
    }
    // Take the value over before the children may move: it may be one of them, and name may be its own.
    const bool ownName = &name == &value.m_name;
    Property taken(std::move(value));
    const std::string& wanted = ownName ? taken.m_name : name;
    if (child == nullptr) {
        taken.m_name = wanted;
        return AppendChild(std::move(taken));
    }
    // The child keeps its name, which already is the one asked for.
    child->m_value = std::move(taken.m_value);
    child->m_children = std::move(taken.m_children);
    return *child;
}

Property& Property::AppendChild(Property&& child) {
    // Settings nodes hold a handful of children: skip the growth steps below that, also for
    // a node copied without room to spare.
    if (m_children.size() == m_children.capacity()) {
        m_children.reserve(std::max(MIN_CAPACITY, 2 * m_children.size()));
    }
    return m_children.emplace_back(std::move(child));
}

Property* Property::FindChild(std::string_view name) {
    auto it = std::find_if(m_children.begin(), m_children.end(), [name](const Property& child) {
        return child.m_name.size() == name.size() && SameBytes(child.m_name.data(), name.data(), name.size());
    });
    return it == m_children.end() ? nullptr : &*it;
}

const Property* Property::FindChild(std::string_view name) const {
    return const_cast<Property*>(this)->FindChild(name);
}

const Property* Property::FindChildByPath(std::string_view path) const {
    // Rules and constraints look paths up on every check: walk them without copying names.
    const Property* node = this;
    for (;;) {
        const std::string_view::size_type end = path.find(kSeparator);
        node = node->FindChild(path.substr(0, end));
        if (node == nullptr || end == std::string_view::npos) {
            return node;
        }
        path.remove_prefix(end + kSeparator.size());
    }
}

const Property& Property::ChildByPath(const std::string& path) const {
    if (const Property* node = FindChildByPath(path)) {
        return *node;
    }
    BOOST_THROW_EXCEPTION(AddStack(
        PropertyException() << PropertyException::TagMethodName("ChildByPath")
                            << PropertyException::TagPropertyName(path) << PropertyException::TagPropertyType(GetType())
                            << Exception::TagDescription("No property at path '" + path + "'")));
}

Property& Property::ChildByPath(const std::string& path) {
    return const_cast<Property&>(static_cast<const Property*>(this)->ChildByPath(path));
}

bool Property::ChildExists(std::string_view name) const {
    return FindChild(name) != nullptr;
}

void Property::RemoveChild(std::string_view name) {
    if (const Property* child = FindChild(name)) {
        m_children.erase(m_children.begin() + (child - m_children.data()));
    }
}

void Property::RemoveAll() {
    m_children.clear();
}

Property& Property::operator[](const std::string& name) {
    if (Property* child = FindChild(name)) {
        return *child;
    }
    return SetChild(name);
}

const Property& Property::operator[](const std::string& name) const {
    if (const Property* child = FindChild(name)) {
        return *child;
    }
    BOOST_THROW_EXCEPTION(AddStack(
        PropertyException() << PropertyException::TagMethodName("operator[]")
                            << PropertyException::TagPropertyName(name) << PropertyException::TagPropertyType(GetType())
                            << Exception::TagDescription("No child '" + name + "' in '" + m_name + "'")));
}

const Property& Property::operator[](unsigned long index) const {
    if (index < m_children.size()) {
        return m_children[index];
    }
    BOOST_THROW_EXCEPTION(AddStack(PropertyException()
                                   << PropertyException::TagMethodName("operator[]")
                                   << PropertyException::TagPropertyName(m_name)
                                   << PropertyException::TagPropertyType(GetType())
                                   << Exception::TagDescription("Child index " + std::to_string(index) +
                                                                " out of range in '" + m_name + "'")));
}

Property& Property::operator[](unsigned long index) {
    return const_cast<Property&>(static_cast<const Property&>(*this)[index]);
}

void Property::CopyDataFrom(const Property& other) {
    if (&other == this) {
        return;
    }
    // Copy first: other may be one of our own descendants.
    Value value = other.m_value;
    Children children = other.m_children;
    m_value = std::move(value);
    m_children = std::move(children);
}

bool Property::operator==(const Property& other) const {
    if (m_value != other.m_value || m_children.size() != other.m_children.size()) {
        return false;
    }
    for (std::size_t i = 0; i < m_children.size(); ++i) {
        if (m_children[i].m_name != other.m_children[i].m_name || m_children[i] != other.m_children[i]) {
            return false;
        }
    }
    return true;
}

std::string PropertyValueToString(const Property& property) {
    switch (property.GetType()) {
        case TYPE_BOOL:
            return property.GetBool() ? "true" : "false";
        case TYPE_DOUBLE: {
            std::array<char, 32> buffer{};
            auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), property.GetDouble());
            return std::string(buffer.data(), result.ptr);
        }
        case TYPE_INT64:
            return std::to_string(property.GetInt64());
        case TYPE_STRING:
            return property.GetString();
        case TYPE_RATIONAL: {
            const Property::Ratio r = property.GetRatio();
            return std::to_string(r.numerator()) + "/" + std::to_string(r.denominator());
        }
        case TYPE_CONTAINER:
            break;
    }
    return "{" + std::to_string(property.Count()) + " children}";
}

}  // namespace Tervan::Core

namespace Tervan {

const char* PropertyTypeName(PropertyTypes type) {
    switch (type) {
        case TYPE_BOOL:
            return "bool";
        case TYPE_DOUBLE:
            return "double";
        case TYPE_INT64:
            return "int64";
        case TYPE_STRING:
            return "string";
        case TYPE_RATIONAL:
            return "rational";
        case TYPE_CONTAINER:
            break;
    }
    return "container";
}

}  // namespace Tervan
