#include "Conf/DataHelpers/DataHelperAudioCodecFlac.h"

#include "Conf/ChannelLayout.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/SampleFormats.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long g_possibleSamplerates[] = {8000, 16000, 22050, 24000, 32000, 44100, 48000, 96000};
const long long g_possibleChannels[] = {1, 2, 3, 4, 5, 6};
// Compressed size over raw size. Rows: g_possibleSamplerates; columns: g_possibleChannels.
const double g_coeff[][6] = {
    {0.789063, 0.8125, 0.544271, 0.431641, 0.357812, 0.299479},
    {0.742188, 0.761719, 0.511719, 0.408203, 0.339062, 0.282552},
    {0.719955, 0.736961, 0.495087, 0.396117, 0.329365, 0.274471},
    {0.713542, 0.730469, 0.491319, 0.392578, 0.326562, 0.272569},
    {0.6875, 0.704102, 0.473307, 0.379395, 0.316016, 0.263346},
    {0.65051, 0.666808, 0.446901, 0.359269, 0.299887, 0.250142},
    {0.628906, 0.645833, 0.432726, 0.348633, 0.291406, 0.242839},
    {0.380859, 0.396159, 0.263889, 0.21875, 0.185156, 0.154405},
};
static_assert(std::size(g_coeff) == std::size(g_possibleSamplerates));

const std::string* const kLayouts[] = {
    &A::TAG_CH_LAYOUT_MONO,         &A::TAG_CH_LAYOUT_STEREO,  &A::TAG_CH_LAYOUT_2POINT1,
    &A::TAG_CH_LAYOUT_2_1,          &A::TAG_CH_LAYOUT_2_2,     &A::TAG_CH_LAYOUT_QUAD,
    &A::TAG_CH_LAYOUT_5POINT0,      &A::TAG_CH_LAYOUT_5POINT1, &A::TAG_CH_LAYOUT_5POINT0_BACK,
    &A::TAG_CH_LAYOUT_5POINT1_BACK, &A::TAG_CH_LAYOUT_7POINT1};

// Defaults after the codec id: no bitrate, correction estimates it.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_VBR),
};
// Codec rules after the encoder's.
const Setting kRules[] = {
    Layouts(Place::RESAMPLER, A::TAG_LAYOUT, kLayouts),
    Integers(Place::RESAMPLER, A::TAG_SAMPLE_RATE, g_possibleSamplerates),
};

// The index of the entry nearest to value; on a tie the earlier one.
template <std::size_t N>
std::size_t Nearest(const long long (&table)[N], long long value) {
    const auto* pick = std::min_element(std::begin(table), std::end(table), [value](long long a, long long b) {
        return std::llabs(a - value) < std::llabs(b - value);
    });
    return static_cast<std::size_t>(pick - std::begin(table));
}

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecFlac::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecFlac());
}

DataHelperAudioCodecFlac::DataHelperAudioCodecFlac() : DataHelperAudioCodecFlac(A::CODEC_ID_FLAC, kRules) {}

DataHelperAudioCodecFlac::DataHelperAudioCodecFlac(const std::string& codecId, Rows<Setting> rules)
    : DataHelperAudioCodecBase(codecId, kDefaults, {}, rules) {}

DataHelperAudioCodecFlac::~DataHelperAudioCodecFlac() = default;

long long DataHelperAudioCodecFlac::CalculateBitrate(const Core::Property& settings) {
    const std::size_t rate = Nearest(g_possibleSamplerates, settings[A::TAG_SAMPLE_RATE].GetInt64());
    const std::size_t channels =
        Nearest(g_possibleChannels, LayoutRecord::Find(settings[A::TAG_LAYOUT].GetString()).channels);
    const int bits = SampleFmtRecord::Find(settings[A::TAG_SAMPLE_FORMAT].GetString()).bitsPerSample;
    // The snapped shape, not the actual one: the ratio belongs to its cell.
    return static_cast<long long>(static_cast<double>(g_possibleSamplerates[rate] * g_possibleChannels[channels]) *
                                  bits * g_coeff[rate][channels]);
}

void DataHelperAudioCodecFlac::ApplyPresetSettings(const Core::Property&, Core::Property& out) const {
    out.SetChildT(C::TAG_CODEC_ID, GetCodecID());
}

void DataHelperAudioCodecFlac::CorrectFormatCodec(Core::Property& settings) const {
    CorrectAudioResamplerSettings(settings);
    settings.SetChildT(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_VBR);
    settings.SetChildT(C::TAG_BITRATE, CalculateBitrate(settings));
}

}  // namespace Tervan::Conf
