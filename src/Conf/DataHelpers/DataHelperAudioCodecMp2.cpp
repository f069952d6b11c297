#include "Conf/DataHelpers/DataHelperAudioCodecMp2.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long kBitrates[] = {32000,  48000,  56000,  64000,  80000,  96000, 112000,
                               128000, 160000, 192000, 224000, 256000, 320000};
const long long kSampleRates[] = {32000, 44100, 48000};

// Defaults after the codec id, in order.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_BITRATE, 256000),
};
// Constraints set over the base's.
const Setting kConstraints[] = {
    Integers(Place::CODEC, C::TAG_BITRATE, kBitrates),
    Strings(Place::CODEC, C::TAG_BITRATE_MODE, BitrateModes::CBR_ONLY),
};
// Codec rules after the encoder's.
const Setting kRules[] = {
    Integers(Place::RESAMPLER, A::TAG_SAMPLE_RATE, kSampleRates),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecMp2::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecMp2());
}

DataHelperAudioCodecMp2::DataHelperAudioCodecMp2()
    : DataHelperAudioCodecBase(A::CODEC_ID_MP2, kDefaults, kConstraints, kRules) {}

DataHelperAudioCodecMp2::~DataHelperAudioCodecMp2() = default;

}  // namespace Tervan::Conf
