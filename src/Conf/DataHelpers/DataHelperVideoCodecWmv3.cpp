#include "Conf/DataHelpers/DataHelperVideoCodecWmv3.h"

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
    DefaultQuality(C::TAG_QUALITY),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecWmv3::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecWmv3());
}

DataHelperVideoCodecWmv3::DataHelperVideoCodecWmv3()
    : DataHelperVideoCodecBase(V::CODEC_ID_WMV3, kDefaults, kConstraints) {}

DataHelperVideoCodecWmv3::~DataHelperVideoCodecWmv3() = default;

}  // namespace Tervan::Conf
