#include "Conf/DataHelpers/DataHelperFormatOgv.h"

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

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_THEORA};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_FLAC, &A::CODEC_ID_VORBIS};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&IPreset::KEY_TYPE_ID,
                                                 &F::FORMAT_OGV,
                                                 Container::NO_FLAGS,
                                                 {1, 1, 1, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_THEORA),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_VORBIS)};

}  // namespace

DataHelperFormatOgv::DataHelperFormatOgv() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatOgv::~DataHelperFormatOgv() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatOgv::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatOgv());
}

}  // namespace Tervan::Conf
