#include "Conf/DataHelpers/DataHelperVideoCodecImageBase.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_QUALITY, 1),
    EncoderName(C::TAG_NAME),
    Integer(C::TAG_BITRATE, 2000000),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    DefaultBitrate(C::TAG_BITRATE),
    DefaultQuality(C::TAG_QUALITY),
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecImageBase::Create(const std::string& codecId) {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecImageBase(codecId));
}

DataHelperVideoCodecImageBase::DataHelperVideoCodecImageBase(const std::string& codecId)
    : DataHelperVideoCodecBase(codecId, kDefaults, kConstraints) {}

DataHelperVideoCodecImageBase::~DataHelperVideoCodecImageBase() = default;

}  // namespace Tervan::Conf
