#include "Conf/DataHelpers/DataHelperAudioCodecVorbis.h"

#include "Conf/ChannelLayout.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long kBitrates[] = {16000,  32000,  48000,  64000,  80000,  96000,  112000,
                               128000, 160000, 192000, 224000, 256000, 288000, 320000};
const long long kSampleRates[] = {8000, 11025, 16000, 22050, 24000, 32000, 44100, 48000};
const std::string* const kLayouts[] = {&A::TAG_CH_LAYOUT_MONO,   &A::TAG_CH_LAYOUT_STEREO,  &A::TAG_CH_LAYOUT_2_1,
                                       &A::TAG_CH_LAYOUT_2_2,    &A::TAG_CH_LAYOUT_5POINT0, &A::TAG_CH_LAYOUT_5POINT1,
                                       &A::TAG_CH_LAYOUT_7POINT1};

// The encoder's bitrate bounds in kbit/s, lowest and highest of kBitrates taken.
// Rows: 1 to 8 channels; columns: kSampleRates.
const long long kBounds[][8][2] = {
    {{16, 32}, {16, 48}, {16, 96}, {16, 80}, {16, 80}, {32, 160}, {32, 224}, {32, 224}},
    {{16, 80}, {16, 96}, {32, 192}, {32, 160}, {32, 160}, {48, 320}, {48, 320}, {48, 320}},
    {{32, 112}, {48, 128}, {48, 288}, {48, 256}, {48, 256}, {96, 320}, {96, 320}, {96, 320}},
    {{32, 160}, {48, 192}, {64, 320}, {64, 320}, {64, 320}, {128, 320}, {128, 320}, {128, 320}},
    {{48, 192}, {64, 224}, {80, 320}, {80, 320}, {80, 320}, {160, 320}, {160, 320}, {160, 320}},
    {{48, 224}, {80, 288}, {96, 320}, {96, 320}, {96, 320}, {192, 320}, {192, 320}, {192, 320}},
    {{64, 288}, {96, 320}, {112, 320}, {112, 320}, {112, 320}, {224, 320}, {224, 320}, {224, 320}},
    {{64, 320}, {96, 320}, {128, 320}, {128, 320}, {128, 320}, {256, 320}, {256, 320}, {256, 320}},
};
static_assert(std::size(kBounds[0]) == std::size(kSampleRates));

// The bitrates a stereo stream may have at a sample rate, applied to every layout.
// Columns: sample rate, bitrates (zero-padded).
const struct {
    long long sampleRate;
    long long bitrates[10];
} kStereoBitrates[] = {
    {8000, {16000, 24000, 32000, 48000}},
    {11025, {16000, 24000, 32000, 48000, 96000}},
    {16000, {24000, 32000, 48000, 64000, 96000, 128000, 160000, 192000}},
    {22050, {32000, 48000, 64000, 96000, 128000, 160000}},
    {24000, {32000, 48000, 64000, 96000, 128000, 160000}},
    {32000, {48000, 64000, 96000, 128000, 160000, 192000, 224000, 256000, 320000}},
    {44100, {48000, 64000, 96000, 128000, 160000, 192000, 224000, 256000, 320000, 448000}},
    {48000, {48000, 64000, 96000, 128000, 160000, 192000, 224000, 256000, 320000, 448000}},
};

// Defaults after the codec id, in order.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_BITRATE, 256000),
    Integer(C::TAG_QUALITY, 1),
};
// Constraints set over the base's.
const Setting kConstraints[] = {
    Integers(Place::CODEC, C::TAG_BITRATE, kBitrates),
    DefaultQuality(C::TAG_QUALITY),
    Strings(Place::CODEC, C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
};
// Codec rules after the encoder's.
const Setting kRules[] = {
    Integers(Place::RESAMPLER, A::TAG_SAMPLE_RATE, kSampleRates),
    Layouts(Place::RESAMPLER, A::TAG_LAYOUT, kLayouts),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecVorbis::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecVorbis());
}

DataHelperAudioCodecVorbis::DataHelperAudioCodecVorbis()
    : DataHelperAudioCodecBase(A::CODEC_ID_VORBIS, kDefaults, kConstraints, kRules) {
    for (const auto& row : kStereoBitrates) {
        PairList<long long> bitrates;
        for (long long bitrate : row.bitrates) {
            if (bitrate != 0) {
                bitrates.emplace_back(PairLabel(bitrate), bitrate);
            }
        }
        m_ownRules.emplace_back(
            Core::Property::SEPARATOR,
            PairValidationRule::Create(ResamplerPath(A::TAG_SAMPLE_RATE),
                                       ConstraintSet::Create(BeginPairList(PairLabel(row.sampleRate), row.sampleRate)),
                                       CodecPath(C::TAG_BITRATE), ConstraintSet::Create(bitrates)));
    }
}

DataHelperAudioCodecVorbis::~DataHelperAudioCodecVorbis() = default;

const std::vector<DataHelperAudioCodecVorbis::OperatingPoint>& DataHelperAudioCodecVorbis::OperatingPoints() {
    static const std::vector<OperatingPoint> points = [] {
        std::vector<OperatingPoint> table;
        for (std::size_t channels = 0; channels < std::size(kBounds); ++channels) {
            for (std::size_t rate = 0; rate < std::size(kSampleRates); ++rate) {
                const long long* bounds = kBounds[channels][rate];
                for (long long bitrate : kBitrates) {
                    if (bitrate >= bounds[0] * 1000 && bitrate <= bounds[1] * 1000) {
                        table.push_back({static_cast<long long>(channels + 1), kSampleRates[rate], bitrate});
                    }
                }
            }
        }
        return table;
    }();
    return points;
}

void DataHelperAudioCodecVorbis::GetValidationRules(ValidationRules& out) const {
    DataHelperAudioCodecBase::GetValidationRules(out);
    AppendRules(out, m_ownRules);
}

void DataHelperAudioCodecVorbis::CorrectFormatCodec(Core::Property& settings) const {
    DataHelperCodecFFMPEG::CorrectFormatCodec(settings);
    const std::vector<OperatingPoint>& points = OperatingPoints();
    const long long channels = LayoutRecord::Find(settings[A::TAG_LAYOUT].GetString()).channels;
    const long long rate = settings[A::TAG_SAMPLE_RATE].GetInt64();
    const long long bitrate = settings[C::TAG_BITRATE].GetInt64();

    OperatingPoint max{0, 0, 0};
    for (const OperatingPoint& point : points) {
        max.channels = std::max(max.channels, point.channels);
        max.sampleRate = std::max(max.sampleRate, point.sampleRate);
        max.bitrate = std::max(max.bitrate, point.bitrate);
    }
    const auto distance = [&](const OperatingPoint& point) {
        const auto share = [](long long a, long long b, long long range) {
            return static_cast<double>(std::llabs(a - b)) / static_cast<double>(range);
        };
        const double dc = 3 * share(point.channels, channels, max.channels);
        const double dr = 2 * share(point.sampleRate, rate, max.sampleRate);
        const double db = share(point.bitrate, bitrate, max.bitrate);
        return std::sqrt(dc * dc + dr * dr + db * db);
    };
    // min_element keeps the first of equally near points.
    const OperatingPoint& pick =
        *std::min_element(points.begin(), points.end(),
                          [&](const OperatingPoint& a, const OperatingPoint& b) { return distance(a) < distance(b); });

    if (pick.channels != channels) {
        settings.SetChildT(A::TAG_LAYOUT, std::string(LayoutRecord::Find(static_cast<int>(pick.channels)).name));
    }
    settings.SetChildT(A::TAG_SAMPLE_RATE, pick.sampleRate);
    settings.SetChildT(C::TAG_BITRATE, pick.bitrate);
}

}  // namespace Tervan::Conf
