#include "Conf/DataHelpers/DataHelperAudioCodecAc3.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

// Defaults after the codec id, in order.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_BITRATE, 256000),
};
// Constraints set over the base's.
const Setting kConstraints[] = {
    AlwaysTrue(Place::CODEC, C::TAG_BITRATE),
    AlwaysTrue(Place::CODEC, C::TAG_BITRATE_MODE),
};
// The only codec rule: the encoder's are dropped.
const Setting kRules[] = {
    AlwaysTrue(Place::RESAMPLER, A::TAG_SAMPLE_RATE),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecAc3::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecAc3());
}

DataHelperAudioCodecAc3::DataHelperAudioCodecAc3()
    : DataHelperAudioCodecBase(A::CODEC_ID_AC3, kDefaults, kConstraints, kRules, EncoderRules::DROPPED) {}

DataHelperAudioCodecAc3::~DataHelperAudioCodecAc3() = default;

}  // namespace Tervan::Conf
