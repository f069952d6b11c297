#include "Conf/DataHelpers/DataHelperVideoCodecMpeg1.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

// The frame the encoder accepts.
const FrameBound kFrameBounds[] = {{&V::TAG_WIDTH, 32, 3840, 2}, {&V::TAG_HEIGHT, 32, 2160, 2}};

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

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecMpeg1::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecMpeg1());
}

DataHelperVideoCodecMpeg1::DataHelperVideoCodecMpeg1()
    : DataHelperVideoCodecBase(V::CODEC_ID_MPEG1VIDEO, kDefaults, kConstraints),
      m_ownRules(FrameBoundRules(kFrameBounds)) {}

DataHelperVideoCodecMpeg1::~DataHelperVideoCodecMpeg1() = default;

void DataHelperVideoCodecMpeg1::GetValidationRules(ValidationRules& out) const {
    DataHelperVideoCodecBase::GetValidationRules(out);
    AppendRules(out, m_ownRules);
}

}  // namespace Tervan::Conf
