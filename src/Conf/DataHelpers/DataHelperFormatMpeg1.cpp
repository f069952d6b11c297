#include "Conf/DataHelpers/DataHelperFormatMpeg1.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_MPEG1VIDEO};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_MP2, &A::CODEC_ID_MP3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&IPreset::KEY_TYPE_ID,
                                                 &IFormatFile::FORMAT_MPEG1VIDEO,
                                                 Container::NO_FLAGS,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_MPEG1VIDEO),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_MP2)};

// The video codecs held to the MPEG frame rates (listed twice, harmlessly).
constexpr const std::string* kFrameRateCodecs[] = {&V::CODEC_ID_MPEG1VIDEO, &V::CODEC_ID_MPEG1VIDEO};

}  // namespace

DataHelperFormatMpeg1::DataHelperFormatMpeg1()
    : DataHelperFormatProgramStream(kDescription, IdentifierPairs(kFrameRateCodecs)) {}

DataHelperFormatMpeg1::~DataHelperFormatMpeg1() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatMpeg1::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatMpeg1());
}

}  // namespace Tervan::Conf
