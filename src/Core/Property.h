#pragma once

#include "Core/Api.h"
#include "Core/Exception.h"
#include "Core/PropertyTypes.h"

#include <boost/rational.hpp>

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace Tervan::Core {

// A named node of a settings tree: either a typed value or an ordered list of
// named children (a container). Copies are deep.
class TERVAN_API Property {
public:
    using Ratio = boost::rational<long long>;
    using Children = std::vector<Property>;

    // Joins child names into a path for ChildByPath.
    static const std::string SEPARATOR;

    Property();
    explicit Property(const std::string& name);
    Property(const std::string& name, bool value);
    Property(const std::string& name, double value);
    Property(const std::string& name, long long value);
    Property(const std::string& name, const std::string& value);
    Property(const std::string& name, const char* value);
    // A null text would only fail at run time.
    Property(const std::string& name, std::nullptr_t) = delete;
    Property(const std::string& name, const Ratio& value);
    // Every other integer type is stored as a 64-bit integer; an unsigned value beyond
    // its range throws PropertyException rather than turning negative.
    template <class T, std::enable_if_t<
                           std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, long long>, int> = 0>
    Property(const std::string& name, T value) : Property(name, ToInt64(name, value)) {}

    Property(const Property&) = default;
    Property(Property&&) noexcept = default;
    Property& operator=(const Property&) = default;
    Property& operator=(Property&&) noexcept = default;
    ~Property() = default;

    // Replace the value (and type); a container loses its children.
    Property& operator=(bool value);
    Property& operator=(long long value);
    // Every other integer type as the constructor takes it.
    template <class T, std::enable_if_t<
                           std::is_integral_v<T> && !std::is_same_v<T, bool> && !std::is_same_v<T, long long>, int> = 0>
    Property& operator=(T value) {
        return *this = ToInt64(m_name, value);
    }
    Property& operator=(double value);
    Property& operator=(const std::string& value);
    Property& operator=(const char* value);
    Property& operator=(std::nullptr_t) = delete;
    Property& operator=(const Ratio& value);

    const std::string& GetName() const { return m_name; }
    void SetName(const std::string& name) { m_name = name; }
    PropertyTypes GetType() const;

    // Readers throw PropertyException when the node has another type, except that
    // the numeric readers convert between integer, double and rational.
    bool GetBool() const;
    long long GetInt64() const;  // a double is truncated toward zero
    double GetDouble() const;
    const std::string& GetString() const;
    Ratio GetRatio() const;

    Property& SetChild(const std::string& name);
    Property& SetChild(const std::string& name, const Property& value);
    Property& SetChild(const std::string& name, Property&& value);
    Property* FindChild(std::string_view name);
    const Property* FindChild(std::string_view name) const;
    // Throws PropertyException naming the path when an element is missing.
    const Property& ChildByPath(const std::string& path) const;
    Property& ChildByPath(const std::string& path);
    // Null instead of an exception when an element is missing.
    Property* FindChildByPath(std::string_view path) {
        return const_cast<Property*>(std::as_const(*this).FindChildByPath(path));
    }
    const Property* FindChildByPath(std::string_view path) const;
    bool ChildExists(std::string_view name) const;
    void RemoveChild(std::string_view name);
    void RemoveAll();
    unsigned long Count() const { return static_cast<unsigned long>(m_children.size()); }

    // The non-const form creates an empty container child when there is none.
    Property& operator[](const std::string& name);
    const Property& operator[](const std::string& name) const;
    const Property& operator[](unsigned long index) const;
    Property& operator[](unsigned long index);

    Children::const_iterator begin() const { return m_children.begin(); }
    Children::const_iterator end() const { return m_children.end(); }

    // Take the other node's type, value and children; keep this node's name.
    void CopyDataFrom(const Property& other);

    // Compares types, values and (for containers) children with their names;
    // never the names of the two nodes themselves.
    bool operator==(const Property& other) const;
    bool operator!=(const Property& other) const { return !(*this == other); }

    template <class T>
    Property& CreateChildT(const std::string& name, const T& value) {
        if (GetType() != TYPE_CONTAINER) {
            BOOST_THROW_EXCEPTION(NotApplicable("CreateChildT"));
        }
        return AppendChild(Property(name, value));
    }

    template <class T>
    Property& SetChildT(const std::string& name, const T& value) {
        if (GetType() != TYPE_CONTAINER) {
            BOOST_THROW_EXCEPTION(NotApplicable("SetChildT"));
        }
        if (Property* child = FindChild(name)) {
            *child = value;
            return *child;
        }
        return CreateChildT(name, value);
    }

private:
    using Value = std::variant<std::monostate, bool, double, long long, std::string, Ratio>;

    template <class T>
    static long long ToInt64(const std::string& name, T value) {
        if constexpr (std::is_unsigned_v<T> && sizeof(T) >= sizeof(long long)) {
            if (value > static_cast<T>(std::numeric_limits<long long>::max())) {
                BOOST_THROW_EXCEPTION(Beyond64Bits(name, value));
            }
        }
        return static_cast<long long>(value);
    }
    static PropertyException Beyond64Bits(const std::string& name, unsigned long long value);
    MethodIsNotApplicable NotApplicable(const char* method) const;
    PropertyException WrongType(const char* method) const;
    Property& AssignValue(Value value);
    Property& AppendChild(Property&& child);

    std::string m_name;
    Value m_value;
    Children m_children;
};

// The value as display text: "true"/"false", shortest round-trip numbers, "n/d" for rationals.
TERVAN_API std::string PropertyValueToString(const Property& property);

}  // namespace Tervan::Core
