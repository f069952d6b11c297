#include "Conf/DataHelpers/DataHelperAudioCodecAac.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"

namespace Tervan::Conf {
namespace {

using namespace AudioCodecTable;
using C = IFormatCodec;
using A = IFormatCodecAudio;

const long long kBitrates[] = {32000, 64000, 96000, 128000, 160000, 192000, 224000, 256000, 320000, 448000, 512000};
const std::string* const kLayouts[] = {&A::TAG_CH_LAYOUT_MONO, &A::TAG_CH_LAYOUT_STEREO};
const std::string* const kProfiles[] = {&A::TAG_AAC_PROFILE_MAIN, &A::TAG_AAC_PROFILE_LOW, &A::TAG_AAC_PROFILE_SSR,
                                        &A::TAG_AAC_PROFILE_LTP,  &A::TAG_AAC_PROFILE_HE,  &A::TAG_AAC_PROFILE_HE_V2,
                                        &A::TAG_AAC_PROFILE_LD,   &A::TAG_AAC_PROFILE_ELD};

// Defaults after the codec id, in order.
const Default kDefaults[] = {
    Text(C::TAG_BITRATE_MODE, C::TAG_BITRATE_MODE_CBR),
    Integer(C::TAG_BITRATE, 256000),
    Option(C::TAG_PROFILE, A::TAG_AAC_PROFILE_MAIN),
};
// Constraints set over the base's. The layout is also offered as a plain list, so that
// a user interface can show it beside the codec.
const Setting kConstraints[] = {
    Integers(Place::CODEC, C::TAG_BITRATE, kBitrates),
    Strings(Place::OPTIONS, C::TAG_PROFILE, kProfiles),
    Strings(Place::CODEC, C::TAG_BITRATE_MODE, BitrateModes::CBR_ONLY),
    Strings(Place::RESAMPLER, A::TAG_LAYOUT, kLayouts),
};
// Codec rules after the encoder's.
const Setting kRules[] = {
    Integers(Place::CODEC, C::TAG_BITRATE, kBitrates),
    Layouts(Place::RESAMPLER, A::TAG_LAYOUT, kLayouts),
};

}  // namespace

boost::intrusive_ptr<const IDataHelper> DataHelperAudioCodecAac::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperAudioCodecAac());
}

DataHelperAudioCodecAac::DataHelperAudioCodecAac()
    : DataHelperAudioCodecBase(A::CODEC_ID_AAC, kDefaults, kConstraints, kRules) {}

DataHelperAudioCodecAac::~DataHelperAudioCodecAac() = default;

}  // namespace Tervan::Conf
