#include "Conf/DataHelpers/DataHelperAudioCodecWmav2.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long kBitrates[] = {32000,  48000,  64000,  80000,  96000,  112000, 128000,
                               160000, 192000, 224000, 256000, 288000, 320000};
const long long kSampleRates[] = {8000, 11025, 16000, 22050, 32000, 44100, 48000};
const std::string* const kLayouts[] = {&A::TAG_CH_LAYOUT_MONO, &A::TAG_CH_LAYOUT_STEREO};

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

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecWmav2::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecWmav2());
}

DataHelperAudioCodecWmav2::DataHelperAudioCodecWmav2()
    : DataHelperAudioCodecBase(A::CODEC_ID_WMAV2, kDefaults, kConstraints, kRules) {}

DataHelperAudioCodecWmav2::~DataHelperAudioCodecWmav2() = default;

}  // namespace Tervan::Conf
