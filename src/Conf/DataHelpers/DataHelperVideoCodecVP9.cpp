#include "Conf/DataHelpers/DataHelperVideoCodecVP9.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

const std::string* const kModes[] = {&C::TAG_BITRATE_MODE_VBR};

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Integer(C::TAG_QUALITY, 10),
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_VBR),
    Integer(C::TAG_BITRATE, 2000000),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    DefaultBitrate(C::TAG_BITRATE),
    OneOf(C::TAG_BITRATE_MODE, kModes),
    DefaultQuality(C::TAG_QUALITY),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecVP9::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecVP9());
}

DataHelperVideoCodecVP9::DataHelperVideoCodecVP9()
    : DataHelperVideoCodecBase(V::CODEC_ID_VP9, kDefaults, kConstraints) {}

DataHelperVideoCodecVP9::~DataHelperVideoCodecVP9() = default;

}  // namespace Tervan::Conf
