#pragma once

#include "Conf/DataHelpers/DataHelperCodecFFMPEG.h"

#include <cstddef>
#include <string>

namespace Tervan::Conf {

// Rows of an audio codec's tables. They hold only addresses, so a table is complete
// before any constructor runs, whatever the order of static initialisation.
namespace AudioCodecTable {

// One default setting: directly in the codec settings, or in its encoder options.
struct Default {
    const std::string* tag;
    bool inOptions;
    long long number;
    const std::string* text;  // null for an integer
};

constexpr Default Integer(const std::string& tag, long long value) {
    return {&tag, false, value, nullptr};
}
constexpr Default Text(const std::string& tag, const std::string& value) {
    return {&tag, false, 0, &value};
}
constexpr Default Option(const std::string& tag, const std::string& value) {
    return {&tag, true, 0, &value};
}

// Where a setting lives. A constraint is keyed relative to the codec settings; a rule
// names the setting from the root of a job.
enum class Place {
    CODEC,      // the codec settings
    OPTIONS,    // the codec's encoder options
    RESAMPLER,  // the audio resampler's settings
};

// One constrained setting: a constraint entry, or the second half of a codec rule.
struct Setting {
    enum Kind { ALWAYS_TRUE, DEFAULT_QUALITY, INTEGERS, STRINGS, LAYOUTS };
    Place place;
    const std::string* tag;
    Kind kind;
    const long long* numbers;
    const std::string* const* strings;
    std::size_t count;
};

// Anything goes; the setting is still listed, with an empty description.
constexpr Setting AlwaysTrue(Place place, const std::string& tag) {
    return {place, &tag, Setting::ALWAYS_TRUE, nullptr, nullptr, 0};
}
// DataHelperCodecFFMPEG's shared quality range.
constexpr Setting DefaultQuality(const std::string& tag) {
    return {Place::CODEC, &tag, Setting::DEFAULT_QUALITY, nullptr, nullptr, 0};
}
template <std::size_t N>
constexpr Setting Integers(Place place, const std::string& tag, const long long (&values)[N]) {
    return {place, &tag, Setting::INTEGERS, values, nullptr, N};
}
// A value set over strings, each labelled by itself.
template <std::size_t N>
constexpr Setting Strings(Place place, const std::string& tag, const std::string* const (&values)[N]) {
    return {place, &tag, Setting::STRINGS, nullptr, values, N};
}
// Channel layouts, repaired by channel count.
template <std::size_t N>
constexpr Setting Layouts(Place place, const std::string& tag, const std::string* const (&values)[N]) {
    return {place, &tag, Setting::LAYOUTS, nullptr, values, N};
}

// A view of a table; empty by default.
template <class T>
struct Rows {
    constexpr Rows() = default;
    template <std::size_t N>
    constexpr Rows(const T (&rows)[N]) : first(rows), last(rows + N) {}  // NOLINT(google-explicit-constructor)
    const T* begin() const { return first; }
    const T* end() const { return last; }

    const T* first = nullptr;
    const T* last = nullptr;
};

}  // namespace AudioCodecTable

// An FFmpeg audio codec helper described by tables: its defaults after the codec id,
// the constraints it sets over the base's, and the codec rules it adds after the
// base's (or instead of them). Every such codec requires the audio resampler.
class TERVAN_API DataHelperAudioCodecBase : public DataHelperCodecFFMPEG {
public:
    enum class EncoderRules { KEPT, DROPPED };

    // The codec id, the table's settings, then the encoder options.
    Core::Property GetDefaults() const override;
    void GetRequiredObjects(RequiredObjects& out) const override;
    void GetValidationRules(ValidationRules& out) const override;
    void GetConstraints(Constraints& out) const override;

protected:
    DataHelperAudioCodecBase(const std::string& codecId, AudioCodecTable::Rows<AudioCodecTable::Default> defaults,
                             AudioCodecTable::Rows<AudioCodecTable::Setting> constraints,
                             AudioCodecTable::Rows<AudioCodecTable::Setting> rules = {},
                             EncoderRules encoderRules = EncoderRules::KEPT);
    ~DataHelperAudioCodecBase() override;

    // KEY_FILTER_AUDIO_CODEC / tag: a codec setting seen from the root of a job.
    static std::string CodecPath(const std::string& tag);

private:
    static ConstraintPtr MakeConstraint(const AudioCodecTable::Setting& row);

    // The tables, interpreted once.
    Core::Property m_defaults;
    ConstraintList m_constraints;
    ValidationRules m_rules;
    EncoderRules m_encoderRules;
};

}  // namespace Tervan::Conf
