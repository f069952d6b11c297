#include "Conf/DataHelpers/DataHelperVideoCodecFlv1.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Core/Api.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

// The one video codec whose defaults name an encoder.
TERVAN_CONSTANT const std::string kEncoder = "flv";

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Text(C::TAG_NAME, kEncoder),
    Integer(C::TAG_BITRATE, 2000000),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    DefaultBitrate(C::TAG_BITRATE),
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_ONLY),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecFlv1::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecFlv1());
}

DataHelperVideoCodecFlv1::DataHelperVideoCodecFlv1()
    : DataHelperVideoCodecBase(V::CODEC_ID_FLV1, kDefaults, kConstraints, Filters::NONE) {}

DataHelperVideoCodecFlv1::~DataHelperVideoCodecFlv1() = default;

}  // namespace Tervan::Conf
