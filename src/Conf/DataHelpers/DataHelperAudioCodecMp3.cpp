#include "Conf/DataHelpers/DataHelperAudioCodecMp3.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long kBitrates[] = {32000, 64000, 96000, 128000, 160000, 192000, 224000, 256000, 320000};
const std::string* const kModes[] = {&C::TAG_BITRATE_MODE_VBR, &C::TAG_BITRATE_MODE_CBR};

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
    Strings(Place::CODEC, C::TAG_BITRATE_MODE, kModes),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecMp3::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecMp3());
}

DataHelperAudioCodecMp3::DataHelperAudioCodecMp3()
    : DataHelperAudioCodecBase(A::CODEC_ID_MP3, kDefaults, kConstraints) {}

DataHelperAudioCodecMp3::~DataHelperAudioCodecMp3() = default;

}  // namespace Tervan::Conf
