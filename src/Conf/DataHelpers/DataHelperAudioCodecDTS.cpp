#include "Conf/DataHelpers/DataHelperAudioCodecDTS.h"

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

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecDTS::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecDTS());
}

DataHelperAudioCodecDTS::DataHelperAudioCodecDTS()
    : DataHelperAudioCodecBase(A::CODEC_ID_DTS, kDefaults, kConstraints, {}, EncoderRules::DROPPED) {}

DataHelperAudioCodecDTS::~DataHelperAudioCodecDTS() = default;

}  // namespace Tervan::Conf
