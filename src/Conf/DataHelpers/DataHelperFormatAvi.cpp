#include "Conf/DataHelpers/DataHelperFormatAvi.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_H264, &V::CODEC_ID_MPEG1VIDEO, &V::CODEC_ID_MPEG2VIDEO,
                                               &V::CODEC_ID_MPEG4, &V::CODEC_ID_MJPEG};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_MP3, &A::CODEC_ID_MP2, &A::CODEC_ID_AC3,
                                               &A::CODEC_ID_PCM_S16LE};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_AVI,
                                                 Container::NO_FLAGS,
                                                 {1, 16, 16, 0},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_H264),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_MP3)};

}  // namespace

DataHelperFormatAvi::DataHelperFormatAvi() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatAvi::~DataHelperFormatAvi() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatAvi::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatAvi());
}

}  // namespace Tervan::Conf
