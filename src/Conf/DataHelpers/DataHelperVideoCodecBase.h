#pragma once

#include "Conf/DataHelpers/DataHelperCodecFFMPEG.h"

#include <cstddef>
#include <string>

namespace Tervan::Conf {

// Rows of a video codec's tables. They hold only addresses, so a table is complete
// before any constructor runs, whatever the order of static initialisation.
namespace VideoCodecTable {

// One default setting: directly in the codec settings, or in its encoder options.
struct Default {
    enum Kind { INTEGER, TEXT, ENCODER_NAME };
    const std::string* tag;
    bool inOptions;
    Kind kind;
    long long number;
    const std::string* text;
};

// One constraint, keyed like the default of the same tag.
struct Constraint {
    enum Kind { DEFAULT_BITRATE, DEFAULT_QUALITY, RANGE, VALUES };
    const std::string* tag;
    bool inOptions;
    Kind kind;
    long long lo, hi;
    const std::string* const* values;
    std::size_t valueCount;
};

// One bound on the output frame, enforced by a rule while the codec is selected.
struct FrameBound {
    const std::string* tag;  // the resizer's width or height setting
    long long lo, hi, step;  // the step is offered to user interfaces only
};

constexpr Default Integer(const std::string& tag, long long value) {
    return {&tag, false, Default::INTEGER, value, nullptr};
}
constexpr Default Text(const std::string& tag, const std::string& value) {
    return {&tag, false, Default::TEXT, 0, &value};
}
constexpr Default Option(const std::string& tag, const std::string& value) {
    return {&tag, true, Default::TEXT, 0, &value};
}
// The encoder that libavcodec chose for the codec.
constexpr Default EncoderName(const std::string& tag) {
    return {&tag, false, Default::ENCODER_NAME, 0, nullptr};
}

// The shared constraints of DataHelperCodecFFMPEG.
constexpr Constraint DefaultBitrate(const std::string& tag) {
    return {&tag, false, Constraint::DEFAULT_BITRATE, 0, 0, nullptr, 0};
}
constexpr Constraint DefaultQuality(const std::string& tag) {
    return {&tag, false, Constraint::DEFAULT_QUALITY, 0, 0, nullptr, 0};
}
// An integer range without a step.
constexpr Constraint Range(const std::string& tag, long long lo, long long hi) {
    return {&tag, false, Constraint::RANGE, lo, hi, nullptr, 0};
}
// A value set over strings, each labelled by itself.
template <std::size_t N>
constexpr Constraint OneOf(const std::string& tag, const std::string* const (&values)[N]) {
    return {&tag, false, Constraint::VALUES, 0, 0, values, N};
}
template <std::size_t N>
constexpr Constraint OptionOneOf(const std::string& tag, const std::string* const (&values)[N]) {
    return {&tag, true, Constraint::VALUES, 0, 0, values, N};
}

}  // namespace VideoCodecTable

// A video codec helper described by two tables: its defaults after the codec id, and
// the constraints it sets over the base's. Every video codec requires the resize and
// frame-rate filters unless it says otherwise.
class TERVAN_API DataHelperVideoCodecBase : public DataHelperCodecFFMPEG {
public:
    enum class Filters { RESIZE_AND_FRAME_RATE, NONE };

    // The base's defaults, then the table's settings, then the encoder options.
    Core::Property GetDefaults() const override;
    void GetRequiredObjects(RequiredObjects& out) const override;
    // The base's constraints, then the table's, replacing any of the same path.
    void GetConstraints(Constraints& out) const override;

protected:
    template <std::size_t D, std::size_t C>
    DataHelperVideoCodecBase(const std::string& codecId, const VideoCodecTable::Default (&defaults)[D],
                             const VideoCodecTable::Constraint (&constraints)[C],
                             Filters filters = Filters::RESIZE_AND_FRAME_RATE)
        : DataHelperCodecFFMPEG(codecId, MEDIA_TYPE_VIDEO), m_filters(filters) {
        Interpret(defaults, defaults + D, constraints, constraints + C);
    }
    ~DataHelperVideoCodecBase() override;

    // Proc::IFilterResize::CLASS_ID / Proc::IResize::CLASS_ID / tag: the output frame.
    static std::string ResizerPath(const std::string& tag);
    // The codec rules that keep the output frame within bounds.
    template <std::size_t N>
    ValidationRules FrameBoundRules(const VideoCodecTable::FrameBound (&bounds)[N]) const {
        ValidationRules rules;
        for (const VideoCodecTable::FrameBound& bound : bounds) {
            AddFrameBoundRule(rules, bound);
        }
        return rules;
    }

private:
    void Interpret(const VideoCodecTable::Default* firstDefault, const VideoCodecTable::Default* lastDefault,
                   const VideoCodecTable::Constraint* firstConstraint,
                   const VideoCodecTable::Constraint* lastConstraint);
    void AddFrameBoundRule(ValidationRules& out, const VideoCodecTable::FrameBound& bound) const;

    // The tables, interpreted once.
    Core::Property m_defaults;
    ConstraintList m_constraints;
    Filters m_filters;
};

}  // namespace Tervan::Conf
