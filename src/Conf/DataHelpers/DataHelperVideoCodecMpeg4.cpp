#include "Conf/DataHelpers/DataHelperVideoCodecMpeg4.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

const std::string* const kProfiles[] = {&V::TAG_MPEG4_PROFILE_SIMPLE, &V::TAG_MPEG4_PROFILE_MAIN,
                                        &V::TAG_MPEG4_PROFILE_CORE_SCALABLE, &V::TAG_MPEG4_PROFILE_ADVANCED_SIMPLE};

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Integer(C::TAG_BITRATE, 2000000),
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Option(C::TAG_PROFILE, V::TAG_MPEG4_PROFILE_SIMPLE),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    DefaultBitrate(C::TAG_BITRATE),
    OptionOneOf(C::TAG_PROFILE, kProfiles),
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_ONLY),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecMpeg4::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecMpeg4());
}

DataHelperVideoCodecMpeg4::DataHelperVideoCodecMpeg4()
    : DataHelperVideoCodecBase(V::CODEC_ID_MPEG4, kDefaults, kConstraints) {}

DataHelperVideoCodecMpeg4::~DataHelperVideoCodecMpeg4() = default;

}  // namespace Tervan::Conf
