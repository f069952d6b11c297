#include "Conf/DataHelpers/DataHelperFormatDVD.h"

#include "Conf/DataHelpers/ConstraintRange.h"
#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/DataHelpers/PairValidationRule.h"
#include "Conf/Interfaces/IFormatCodec.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_MPEG1VIDEO, &V::CODEC_ID_MPEG2VIDEO};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_MP2, &A::CODEC_ID_AC3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_DVD,
                                                 Container::NO_FLAGS,
                                                 {9, 8, 32, 0},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_MPEG2VIDEO),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_MP2)};

constexpr const std::string* kStandards[] = {&F::DVD_STANDARD_NTSC, &F::DVD_STANDARD_PAL};
constexpr const std::string* kVideoBitrateModes[] = {&IFormatCodec::TAG_BITRATE_MODE_CBR_AUTO,
                                                     &IFormatCodec::TAG_BITRATE_MODE_CBR};
constexpr long long kMinVideoBitrate = 100000;

// Video bit rate ceilings: the DVD-Video maximum for MPEG-2, the constrained-parameters one for MPEG-1.
constexpr const std::string* kMpeg2Video[] = {&V::CODEC_ID_MPEG2VIDEO};
constexpr long long kMaxMpeg2Bitrate = 9800000;
constexpr const std::string* kMpeg1Video[] = {&V::CODEC_ID_MPEG1VIDEO};
constexpr long long kMaxMpeg1Bitrate = 1856000;

// Every disc audio stream is constant bit rate, 256 kbit/s, 48 kHz.
constexpr const std::string* kDiscAudio[] = {&A::CODEC_ID_AC3, &A::CODEC_ID_MP2};
constexpr const std::string* kAudioBitrateModes[] = {&IFormatCodec::TAG_BITRATE_MODE_CBR};
constexpr long long kAudioBitrates[] = {256000};
constexpr long long kSampleRates[] = {48000};

std::string Path(const std::string& section, const std::string& setting) {
    return section + Core::Property::SEPARATOR + setting;
}

// A setting of the video codec of the first stream, named literally.
std::string FirstVideoStreamPath(const std::string& setting) {
    return Path(Path(Path(IPreset::KEY_STREAMS, "0"), IPreset::KEY_FILTER_VIDEO_CODEC), setting);
}

}  // namespace

DataHelperFormatDVD::DataHelperFormatDVD() : DataHelperFormatContainer(kDescription) {
    AddSetting(Core::Property(F::TAG_DVD_STANDARD, F::DVD_STANDARD_NTSC));
    AddSetting(Core::Property(F::TAG_DISK_SIZE, F::DISK_SIZE_DVD_STANDARD));
    const std::string videoCodec = Path(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodec::TAG_CODEC_ID);
    const std::string videoBitrate = Path(IPreset::KEY_FILTER_VIDEO_CODEC, IFormatCodec::TAG_BITRATE);
    const std::string& audioCodec = AudioCodecIdPath();
    const boost::intrusive_ptr<const IPropertyConstraint> discAudio =
        ConstraintSet::Create(IdentifierPairs(kDiscAudio));
    AddRule(PairValidationRule::Create(videoCodec, ConstraintSet::Create(IdentifierPairs(kMpeg2Video)), videoBitrate,
                                       ConstraintRange::Create(kMinVideoBitrate, kMaxMpeg2Bitrate, 0LL)));
    AddRule(PairValidationRule::Create(videoCodec, ConstraintSet::Create(IdentifierPairs(kMpeg1Video)), videoBitrate,
                                       ConstraintRange::Create(kMinVideoBitrate, kMaxMpeg1Bitrate, 0LL)));
    AddRule(PairValidationRule::Create(audioCodec, discAudio,
                                       Path(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodec::TAG_BITRATE_MODE),
                                       ConstraintSet::Create(IdentifierPairs(kAudioBitrateModes))));
    AddRule(PairValidationRule::Create(audioCodec, discAudio,
                                       Path(IPreset::KEY_FILTER_AUDIO_CODEC, IFormatCodec::TAG_BITRATE),
                                       ConstraintSet::Create(CreatePairValueList(kAudioBitrates))));
    AddRule(SampleRateRule(discAudio, CreatePairValueList(kSampleRates)));
    AddConstraint(F::TAG_DVD_STANDARD, ConstraintSet::Create(IdentifierPairs(kStandards)));
    // Labelled by the disc's name, not by its size.
    AddConstraint(F::TAG_DISK_SIZE,
                  ConstraintSet::Create(PairList<long long>(BeginPairList(F::DISK_TYPE_DVD_MINI, F::DISK_SIZE_DVD_MINI)(
                      F::DISK_TYPE_DVD_STANDARD, F::DISK_SIZE_DVD_STANDARD)(F::DISK_TYPE_DVD_DOUBLE_LAYER,
                                                                            F::DISK_SIZE_DVD_DOUBLE_LAYER))));
    AddConstraint(FirstVideoStreamPath(IFormatCodec::TAG_BITRATE_MODE),
                  ConstraintSet::Create(IdentifierPairs(kVideoBitrateModes)));
    AddConstraint(FirstVideoStreamPath(IFormatCodec::TAG_BITRATE),
                  ConstraintRange::Create(kMinVideoBitrate, V::MAX_VIDEO_BITRATE, 0LL));
}

DataHelperFormatDVD::~DataHelperFormatDVD() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatDVD::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatDVD());
}

}  // namespace Tervan::Conf
