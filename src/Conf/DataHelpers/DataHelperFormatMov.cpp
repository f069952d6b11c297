#include "Conf/DataHelpers/DataHelperFormatMov.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_H264, &V::CODEC_ID_MPEG4, &V::CODEC_ID_MJPEG};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_AAC, &A::CODEC_ID_ALAC, &A::CODEC_ID_MP3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {nullptr,
                                                 nullptr,
                                                 Container::PROGRESSIVE_READ,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_H264),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_AAC)};

}  // namespace

DataHelperFormatMov::DataHelperFormatMov() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatMov::~DataHelperFormatMov() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatMov::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatMov());
}

}  // namespace Tervan::Conf
