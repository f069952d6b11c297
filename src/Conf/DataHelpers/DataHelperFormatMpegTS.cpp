#include "Conf/DataHelpers/DataHelperFormatMpegTS.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_MPEG2VIDEO, &V::CODEC_ID_H264};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_MP2, &A::CODEC_ID_MP3, &A::CODEC_ID_AAC, &A::CODEC_ID_AC3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_MPEGTS,
                                                 Container::NO_FLAGS,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_MPEG2VIDEO),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_MP2)};

}  // namespace

DataHelperFormatMpegTS::DataHelperFormatMpegTS() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatMpegTS::~DataHelperFormatMpegTS() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatMpegTS::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatMpegTS());
}

}  // namespace Tervan::Conf
