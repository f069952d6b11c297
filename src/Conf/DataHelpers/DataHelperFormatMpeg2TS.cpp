#include "Conf/DataHelpers/DataHelperFormatMpeg2TS.h"

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
                                                 &F::FORMAT_MPEG2TS,
                                                 Container::NO_FLAGS,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_MPEG2VIDEO),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_AAC)};

}  // namespace

DataHelperFormatMpeg2TS::DataHelperFormatMpeg2TS() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatMpeg2TS::~DataHelperFormatMpeg2TS() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatMpeg2TS::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatMpeg2TS());
}

}  // namespace Tervan::Conf
