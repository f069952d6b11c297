#include "Conf/DataHelpers/DataHelperVideoCodecX265.h"

#include "Conf/Interfaces/IFormatCodecVideo.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

const std::string* const kPresets[] = {&V::TAG_X265_PRESET_ULTRAFAST, &V::TAG_X265_PRESET_SUPERFAST,
                                       &V::TAG_X265_PRESET_VERYFAST,  &V::TAG_X265_PRESET_FASTER,
                                       &V::TAG_X265_PRESET_FAST,      &V::TAG_X265_PRESET_MEDIUM,
                                       &V::TAG_X265_PRESET_SLOW,      &V::TAG_X265_PRESET_SLOWER,
                                       &V::TAG_X265_PRESET_VERYSLOW,  &V::TAG_X265_PRESET_PLACEBO};
const std::string* const kTunes[] = {&V::TAG_X265_TUNE_PSNR, &V::TAG_X265_TUNE_SSIM, &V::TAG_X265_TUNE_FASTDECODE,
                                     &V::TAG_X265_TUNE_ZEROLATENCY};

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Integer(C::TAG_BITRATE, 2000000),
    Integer(C::TAG_QUALITY, 1),
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Option(C::TAG_PRESET, V::TAG_X265_PRESET_ULTRAFAST),
    Option(V::TAG_X265_TUNE, V::TAG_X265_TUNE_FASTDECODE),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
    DefaultBitrate(C::TAG_BITRATE),
    DefaultQuality(C::TAG_QUALITY),
    OptionOneOf(C::TAG_PRESET, kPresets),
    OptionOneOf(V::TAG_X265_TUNE, kTunes),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecX265::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecX265());
}

DataHelperVideoCodecX265::DataHelperVideoCodecX265()
    : DataHelperVideoCodecBase(V::CODEC_ID_H265, kDefaults, kConstraints) {}

DataHelperVideoCodecX265::~DataHelperVideoCodecX265() = default;

}  // namespace Tervan::Conf
