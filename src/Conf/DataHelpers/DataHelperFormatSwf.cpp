#include "Conf/DataHelpers/DataHelperFormatSwf.h"

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

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_FLV1, &V::CODEC_ID_MJPEG};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_MP3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_SWF,
                                                 Container::NO_FLAGS,
                                                 {1, 1, 0, 0},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_MJPEG),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_MP3)};

// Every audio codec the container admits is held to these rates.
constexpr long long kSampleRates[] = {11025, 22050, 44100};

}  // namespace

DataHelperFormatSwf::DataHelperFormatSwf() : DataHelperFormatContainer(kDescription) {
    AddRule(SampleRateRule(AudioCodecsConstraint(), CreatePairValueList(kSampleRates)));
}

DataHelperFormatSwf::~DataHelperFormatSwf() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatSwf::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatSwf());
}

}  // namespace Tervan::Conf
