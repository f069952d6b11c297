#pragma once

#include <array>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tervan::Conf {

template <class T>
using PairList = std::vector<std::pair<std::string, T>>;

// The label of a generated list entry: an integer's decimal text, a string itself.
inline std::string PairLabel(const std::string& value) {
    return value;
}
template <class T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
std::string PairLabel(T value) {
    return std::to_string(value);
}

// (label, value) pairs in array order.
template <class T, std::size_t N>
PairList<T> CreatePairValueList(const T (&values)[N]) {
    PairList<T> list;
    list.reserve(N);
    for (const T& value : values) {
        list.emplace_back(PairLabel(value), value);
    }
    return list;
}

template <class T>
PairList<T> CreatePairValueList(const std::vector<T>& values) {
    PairList<T> list;
    list.reserve(values.size());
    for (const T& value : values) {
        list.emplace_back(PairLabel(value), value);
    }
    return list;
}

// A list written in place: BeginPairList("Auto", x)("8", y) ... converts to a PairList.
template <class T>
class PairListBuilder {
public:
    PairListBuilder(const std::string& label, const T& value) : m_list{{label, value}} {}
    PairListBuilder& operator()(const std::string& label, const T& value) {
        m_list.emplace_back(label, value);
        return *this;
    }
    operator PairList<T>() const { return m_list; }  // NOLINT(google-explicit-constructor)
    const PairList<T>& List() const { return m_list; }

private:
    PairList<T> m_list;
};

template <class T>
PairListBuilder<T> BeginPairList(const std::string& label, const T& value) {
    return PairListBuilder<T>(label, value);
}

}  // namespace Tervan::Conf
