#include "Conf/DataHelpers/DataHelperVideoCodecX264.h"

#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IPreset.h"

namespace Tervan::Conf {
namespace {

using namespace VideoCodecTable;
using C = IFormatCodec;
using V = IFormatCodecVideo;

const std::string* const kPresets[] = {&V::TAG_X264_PRESET_ULTRAFAST, &V::TAG_X264_PRESET_SUPERFAST,
                                       &V::TAG_X264_PRESET_VERYFAST,  &V::TAG_X264_PRESET_FASTER,
                                       &V::TAG_X264_PRESET_FAST,      &V::TAG_X264_PRESET_MEDIUM,
                                       &V::TAG_X264_PRESET_SLOW,      &V::TAG_X264_PRESET_SLOWER,
                                       &V::TAG_X264_PRESET_VERYSLOW,  &V::TAG_X264_PRESET_PLACEBO};
const std::string* const kProfiles[] = {&V::TAG_X264_PROFILE_BASELINE, &V::TAG_X264_PROFILE_MAIN,
                                        &V::TAG_X264_PROFILE_HIGH,     &V::TAG_X264_PROFILE_HIGH10,
                                        &V::TAG_X264_PROFILE_HIGH422,  &V::TAG_X264_PROFILE_HIGH444};
const std::string* const kTunes[] = {
    &V::TAG_X264_TUNE_FILM, &V::TAG_X264_TUNE_ANIMATION, &V::TAG_X264_TUNE_GRAIN,      &V::TAG_X264_TUNE_STILLIMAGE,
    &V::TAG_X264_TUNE_PSNR, &V::TAG_X264_TUNE_SSIM,      &V::TAG_X264_TUNE_FASTDECODE, &V::TAG_X264_TUNE_ZEROLATENCY};
const std::string* const kPasses[] = {&C::TAG_ONE_PASS_MODE, &C::TAG_TWO_PASS_MODE};
// The ultrafast preset is allowed with the baseline profile only.
const std::string* const kUltrafast[] = {&V::TAG_X264_PRESET_ULTRAFAST};
const std::string* const kBaseline[] = {&V::TAG_X264_PROFILE_BASELINE};

// Defaults after the codec id, in order; every codec ends with its encoder options.
const Default kDefaults[] = {
    Integer(C::TAG_BITRATE, 2000000),
    Integer(C::TAG_QUALITY, 1),
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Text(C::TAG_MULTIPASS_ENCODING, C::TAG_ONE_PASS_MODE),
    Option(C::TAG_PRESET, V::TAG_X264_PRESET_FASTER),
    Option(C::TAG_PROFILE, V::TAG_X264_PROFILE_MAIN),
    Option(V::TAG_X264_TUNE, V::TAG_X264_TUNE_FILM),
};
// Constraints set over the base's, in order.
const Constraint kConstraints[] = {
    OneOf(C::TAG_BITRATE_MODE, BitrateModes::CBR_OR_VBR),
    DefaultBitrate(C::TAG_BITRATE),
    DefaultQuality(C::TAG_QUALITY),
    OptionOneOf(C::TAG_PRESET, kPresets),
    OptionOneOf(C::TAG_PROFILE, kProfiles),
    OptionOneOf(V::TAG_X264_TUNE, kTunes),
    OneOf(C::TAG_MULTIPASS_ENCODING, kPasses),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperVideoCodecX264::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperVideoCodecX264());
}

DataHelperVideoCodecX264::DataHelperVideoCodecX264()
    : DataHelperVideoCodecBase(V::CODEC_ID_H264, kDefaults, kConstraints) {
    const std::string options = IPreset::KEY_FILTER_VIDEO_CODEC + Core::Property::SEPARATOR +
                                C::TAG_CODEC_OPTIONS_ENCODE + Core::Property::SEPARATOR;
    m_ownRules.emplace_back(Core::Property::SEPARATOR,
                            PairValidationRule::Create(options + C::TAG_PRESET, OneOf(kUltrafast),
                                                       options + C::TAG_PROFILE, OneOf(kBaseline)));
}

DataHelperVideoCodecX264::~DataHelperVideoCodecX264() = default;

void DataHelperVideoCodecX264::GetValidationRules(ValidationRules& out) const {
    DataHelperVideoCodecBase::GetValidationRules(out);
    AppendRules(out, m_ownRules);
}

}  // namespace Tervan::Conf
