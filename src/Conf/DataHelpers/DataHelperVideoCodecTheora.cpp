#include "Conf/DataHelpers/DataHelperVideoCodecTheora.h"

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
    Integer(C::TAG_QUALITY, 1),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    DefaultBitrate(C::TAG_BITRATE),
    Range(C::TAG_QUALITY, 1, 10),
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecTheora::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecTheora());
}

DataHelperVideoCodecTheora::DataHelperVideoCodecTheora()
    : DataHelperVideoCodecBase(V::CODEC_ID_THEORA, kDefaults, kConstraints) {}

DataHelperVideoCodecTheora::~DataHelperVideoCodecTheora() = default;

}  // namespace Tervan::Conf
