#include "Conf/DataHelpers/DataHelperFormat3gp.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_H263, &V::CODEC_ID_H264, &V::CODEC_ID_MPEG4};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_AAC};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_3GP,
                                                 Container::NO_FLAGS,
                                                 {1, 1, 0, 0},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_H263),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_AAC)};

}  // namespace

DataHelperFormat3gp::DataHelperFormat3gp() : DataHelperFormatContainer(kDescription) {}

DataHelperFormat3gp::~DataHelperFormat3gp() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormat3gp::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormat3gp());
}

}  // namespace Tervan::Conf
