#include "Conf/DataHelpers/DataHelperVideoCodecWmv2.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Integer(C::TAG_BITRATE, 2000000),
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
    DefaultBitrate(C::TAG_BITRATE),
    Range(C::TAG_QUALITY, 1, 31),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecWmv2::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecWmv2());
}

DataHelperVideoCodecWmv2::DataHelperVideoCodecWmv2()
    : DataHelperVideoCodecBase(V::CODEC_ID_WMV2, kDefaults, kConstraints) {}

DataHelperVideoCodecWmv2::~DataHelperVideoCodecWmv2() = default;

}  // namespace Tervan::Conf
