#include "Conf/DataHelpers/DataHelperFormatMp4.h"

#include "Conf/DataHelpers/ConstraintSet.h"
#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Core/Property.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_H264, &V::CODEC_ID_MPEG4};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_AAC, &A::CODEC_ID_AC3, &A::CODEC_ID_DTS, &A::CODEC_ID_MP3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_MP4,
                                                 Container::PSP_MODE | Container::PROGRESSIVE_READ,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_H264),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_AAC)};

// The only codec the container restricts, and the rates it may use.
constexpr const std::string* kRateLimitedCodecs[] = {&A::CODEC_ID_MP3};
constexpr long long kSampleRates[] = {44100, 48000, 32000, 22050, 24000, 16000};

}  // namespace

DataHelperFormatMp4::DataHelperFormatMp4() : DataHelperFormatContainer(kDescription) {
    AddRule(
        SampleRateRule(ConstraintSet::Create(IdentifierPairs(kRateLimitedCodecs)), CreatePairValueList(kSampleRates)));
}

DataHelperFormatMp4::~DataHelperFormatMp4() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatMp4::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatMp4());
}

}  // namespace Tervan::Conf
