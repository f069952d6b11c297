#include "Conf/DataHelpers/DataHelperVideoCodecMpeg2.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Proc/IFilterFrameRate.h"

#include <algorithm>
#include <iterator>

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

// The frame the encoder accepts.
const FrameBound kFrameBounds[] = {{&V::TAG_WIDTH, 32, 3840, 2}, {&V::TAG_HEIGHT, 32, 2160, 2}};

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Integer(C::TAG_QUALITY, 1),
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_BITRATE, 2000000),
    Integer(V::TAG_MAX_I_FRAME_INTERVAL, 15),
    Integer(V::TAG_MAX_B_FRAME_SEQUENCE, 2),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    DefaultBitrate(C::TAG_BITRATE),
    DefaultQuality(C::TAG_QUALITY),
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecMpeg2::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecMpeg2());
}

DataHelperVideoCodecMpeg2::DataHelperVideoCodecMpeg2()
    : DataHelperVideoCodecBase(V::CODEC_ID_MPEG2VIDEO, kDefaults, kConstraints),
      m_ownRules(FrameBoundRules(kFrameBounds)) {}

DataHelperVideoCodecMpeg2::~DataHelperVideoCodecMpeg2() = default;

void DataHelperVideoCodecMpeg2::GetValidationRules(ValidationRules& out) const {
    ValidationRules base;
    DataHelperVideoCodecBase::GetValidationRules(base);
    // The encoder's frame-rate list is not enforced for MPEG-2.
    const std::string frameRatePath = Proc::IFilterFrameRate::CLASS_ID + Core::Property::SEPARATOR + V::TAG_FPS;
    std::copy_if(base.begin(), base.end(), std::back_inserter(out),
                 [&frameRatePath](const auto& rule) { return rule.second->GetSecondPath() != frameRatePath; });
    AppendRules(out, m_ownRules);
}

}  // namespace Tervan::Conf
