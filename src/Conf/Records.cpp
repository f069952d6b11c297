#include "Conf/ChannelLayout.h"
#include "Conf/ConfException.h"
#include "Conf/SampleFormats.h"

#include <algorithm>
#include <array>

namespace Tervan::Conf {
namespace {

constexpr int CountChannels(std::uint64_t mask) {
    int count = 0;
    for (; mask != 0; mask &= mask - 1) {
        ++count;
    }
    return count;
}

// libavutil channel bits.
constexpr std::uint64_t FL = 0x1, FR = 0x2, FC = 0x4, LFE = 0x8, BL = 0x10, BR = 0x20, BC = 0x100, SL = 0x200,
                        SR = 0x400;

constexpr LayoutRecord Layout(ChannelLayout layout, std::string_view name, std::uint64_t mask) {
    return LayoutRecord{layout, CountChannels(mask), name, mask};
}

// Constant-initialised: usable from any static initialiser of any library.
constexpr std::array<LayoutRecord, 12> kLayouts = {{
    Layout(CH_LAYOUT_UNKNOWN, "unknown", 0),
    Layout(CH_LAYOUT_MONO, "mono", FC),
    Layout(CH_LAYOUT_STEREO, "stereo", FL | FR),
    Layout(CH_LAYOUT_2POINT1, "2.1", FL | FR | LFE),
    Layout(CH_LAYOUT_2_1, "3.0(back)", FL | FR | BC),
    Layout(CH_LAYOUT_QUAD, "quad", FL | FR | BL | BR),
    Layout(CH_LAYOUT_2_2, "quad(side)", FL | FR | SL | SR),
    Layout(CH_LAYOUT_5POINT0_BACK, "5.0", FL | FR | FC | BL | BR),
    Layout(CH_LAYOUT_5POINT0, "5.0(side)", FL | FR | FC | SL | SR),
    Layout(CH_LAYOUT_5POINT1_BACK, "5.1", FL | FR | FC | LFE | BL | BR),
    Layout(CH_LAYOUT_5POINT1, "5.1(side)", FL | FR | FC | LFE | SL | SR),
    Layout(CH_LAYOUT_7POINT1, "7.1", FL | FR | FC | LFE | BL | BR | SL | SR),
}};

// Columns: format, bits per sample, libavutil name, planar, counterpart.
constexpr std::array<SampleFmtRecord, 12> kSampleFormats = {{
    {SAMPLE_FMT_U8, 8, "u8", false, SAMPLE_FMT_U8P},
    {SAMPLE_FMT_S16, 16, "s16", false, SAMPLE_FMT_S16P},
    {SAMPLE_FMT_S32, 32, "s32", false, SAMPLE_FMT_S32P},
    {SAMPLE_FMT_FLT, 32, "flt", false, SAMPLE_FMT_FLTP},
    {SAMPLE_FMT_DBL, 64, "dbl", false, SAMPLE_FMT_DBLP},
    {SAMPLE_FMT_U8P, 8, "u8p", true, SAMPLE_FMT_U8},
    {SAMPLE_FMT_S16P, 16, "s16p", true, SAMPLE_FMT_S16},
    {SAMPLE_FMT_S32P, 32, "s32p", true, SAMPLE_FMT_S32},
    {SAMPLE_FMT_FLTP, 32, "fltp", true, SAMPLE_FMT_FLT},
    {SAMPLE_FMT_DBLP, 64, "dblp", true, SAMPLE_FMT_DBL},
    {SAMPLE_FMT_S64, 64, "s64", false, SAMPLE_FMT_S64P},
    {SAMPLE_FMT_S64P, 64, "s64p", true, SAMPLE_FMT_S64},
}};

template <class Table, class Predicate>
const typename Table::value_type* FindIf(const Table& table, Predicate predicate) {
    const auto found = std::find_if(table.begin(), table.end(), predicate);
    return found != table.end() ? &*found : nullptr;
}

}  // namespace

const LayoutRecord& LayoutRecord::Find(ChannelLayout layout) {
    if (const auto* r = FindIf(kLayouts, [layout](const LayoutRecord& x) { return x.layout == layout; })) {
        return *r;
    }
    BOOST_THROW_EXCEPTION(
        Core::Described<FormatException>("Unknown channel layout: " + std::to_string(static_cast<int>(layout))));
}

const LayoutRecord& LayoutRecord::Find(const std::string& name) {
    if (const auto* r = FindIf(kLayouts, [&name](const LayoutRecord& x) { return name == x.name; })) {
        return *r;
    }
    BOOST_THROW_EXCEPTION(Core::Described<FormatException>("Unknown channel layout: " + name));
}

const LayoutRecord& LayoutRecord::Find(int channels) {
    if (const auto* r = FindIf(kLayouts, [channels](const LayoutRecord& x) { return x.channels == channels; })) {
        return *r;
    }
    BOOST_THROW_EXCEPTION(
        Core::Described<FormatException>("No channel layout with " + std::to_string(channels) + " channels"));
}

const LayoutRecord* LayoutRecord::FindByMask(std::uint64_t mask) {
    return FindIf(kLayouts, [mask](const LayoutRecord& x) { return x.mask == mask && mask != 0; });
}

const SampleFmtRecord& SampleFmtRecord::Find(SampleFormats format) {
    if (const auto* r = FindIf(kSampleFormats, [format](const SampleFmtRecord& x) { return x.format == format; })) {
        return *r;
    }
    BOOST_THROW_EXCEPTION(
        Core::Described<FormatException>("Unknown sample format: " + std::to_string(static_cast<int>(format))));
}

const SampleFmtRecord& SampleFmtRecord::Find(const std::string& name) {
    if (const auto* r = FindIf(kSampleFormats, [&name](const SampleFmtRecord& x) { return name == x.name; })) {
        return *r;
    }
    BOOST_THROW_EXCEPTION(Core::Described<FormatException>("Unknown sample format: " + name));
}

}  // namespace Tervan::Conf
