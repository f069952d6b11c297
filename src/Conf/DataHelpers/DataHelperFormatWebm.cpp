#include "Conf/DataHelpers/DataHelperFormatWebm.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_VP8, &V::CODEC_ID_VP9};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_VORBIS};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_MATROSKA,
                                                 Container::NO_FLAGS,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_VP8),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_VORBIS)};

}  // namespace

DataHelperFormatWebm::DataHelperFormatWebm() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatWebm::~DataHelperFormatWebm() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatWebm::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatWebm());
}

}  // namespace Tervan::Conf
