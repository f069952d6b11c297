#include "Conf/DataHelpers/DataHelperVideoCodecProres.h"

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
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecProres::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecProres());
}

DataHelperVideoCodecProres::DataHelperVideoCodecProres() : DataHelperVideoCodecProres(V::CODEC_ID_PRORES) {}

DataHelperVideoCodecProres::DataHelperVideoCodecProres(const std::string& codecId)
    : DataHelperVideoCodecBase(codecId, kDefaults, kConstraints) {}

DataHelperVideoCodecProres::~DataHelperVideoCodecProres() = default;

}  // namespace Tervan::Conf
