#include "Conf/DataHelpers/DataHelperAudioCodecPCM.h"

#include "Conf/ChannelLayout.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/SampleFormats.h"

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long kSampleRates[] = {6000, 8000, 11025, 16000, 22050, 32000, 44100, 48000};
const std::string* const kLayouts[] = {
    &A::TAG_CH_LAYOUT_MONO,    &A::TAG_CH_LAYOUT_STEREO,       &A::TAG_CH_LAYOUT_2POINT1,     &A::TAG_CH_LAYOUT_5POINT0,
    &A::TAG_CH_LAYOUT_5POINT1, &A::TAG_CH_LAYOUT_5POINT0_BACK, &A::TAG_CH_LAYOUT_5POINT1_BACK};

// Defaults after the codec id: no bitrate, correction computes it.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
};
// Codec rules after the encoder's.
const Setting kRules[] = {
    Layouts(Place::RESAMPLER, A::TAG_LAYOUT, kLayouts),
    Integers(Place::RESAMPLER, A::TAG_SAMPLE_RATE, kSampleRates),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecPCM::Create(const std::string& codecId) {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecPCM(codecId));
}

DataHelperAudioCodecPCM::DataHelperAudioCodecPCM(const std::string& codecId)
    : DataHelperAudioCodecBase(codecId, kDefaults, {}, kRules) {}

DataHelperAudioCodecPCM::~DataHelperAudioCodecPCM() = default;

void DataHelperAudioCodecPCM::CorrectFormatCodec(Core::Property& settings) const {
    CorrectAudioResamplerSettings(settings);
    // Everything is read before anything is written: a bad value leaves the tree as it was.
    const long long rate = settings[A::TAG_SAMPLE_RATE].GetInt64();
    const long long channels = LayoutRecord::Find(settings[A::TAG_LAYOUT].GetString()).channels;
    const long long bits = SampleFmtRecord::Find(settings[A::TAG_SAMPLE_FORMAT].GetString()).bitsPerSample;
    settings.SetChildT(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR);
    settings.SetChildT(C::TAG_BITRATE, channels * rate * bits);
}

}  // namespace Tervan::Conf
