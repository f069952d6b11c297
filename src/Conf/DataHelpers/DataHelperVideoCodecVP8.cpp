#include "Conf/DataHelpers/DataHelperVideoCodecVP8.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_BITRATE, 2000000),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    DefaultBitrate(C::TAG_BITRATE),
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_ONLY),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecVP8::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecVP8());
}

DataHelperVideoCodecVP8::DataHelperVideoCodecVP8()
    : DataHelperVideoCodecBase(V::CODEC_ID_VP8, kDefaults, kConstraints) {}

DataHelperVideoCodecVP8::~DataHelperVideoCodecVP8() = default;

}  // namespace Tervan::Conf
