#include "Conf/DataHelpers/DataHelperFormatVOB.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"
#include "Conf/Interfaces/IPreset.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_MPEG1VIDEO, &V::CODEC_ID_MPEG2VIDEO};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_MP2, &A::CODEC_ID_AC3};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&IPreset::KEY_TYPE_ID,
                                                 &IFormatFile::FORMAT_MPEG2VIDEO,
                                                 Container::NO_FLAGS,
                                                 {1, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_MPEG2VIDEO),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_MP2)};

// The video codecs held to the MPEG frame rates.
constexpr const std::string* kFrameRateCodecs[] = {&V::CODEC_ID_MPEG2VIDEO, &V::CODEC_ID_MPEG1VIDEO};

}  // namespace

DataHelperFormatVOB::DataHelperFormatVOB()
    : DataHelperFormatProgramStream(kDescription, IdentifierPairs(kFrameRateCodecs)) {}

DataHelperFormatVOB::~DataHelperFormatVOB() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatVOB::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatVOB());
}

}  // namespace Tervan::Conf
