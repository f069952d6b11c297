#include "Conf/DataHelpers/DataHelperFormatMkv.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_H264,   &V::CODEC_ID_MJPEG,  &V::CODEC_ID_MPEG2VIDEO,
                                               &V::CODEC_ID_MPEG4,  &V::CODEC_ID_THEORA, &V::CODEC_ID_VP9,
                                               &V::CODEC_ID_DVVIDEO};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_AAC, &A::CODEC_ID_AC3,  &A::CODEC_ID_DTS,
                                               &A::CODEC_ID_MP3, &A::CODEC_ID_ALAC, &A::CODEC_ID_VORBIS};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_MATROSKA,
                                                 Container::NO_FLAGS,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_H264),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_AAC)};

}  // namespace

DataHelperFormatMkv::DataHelperFormatMkv() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatMkv::~DataHelperFormatMkv() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatMkv::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatMkv());
}

}  // namespace Tervan::Conf
