#include "Conf/DataHelpers/DataHelperFormatWmv.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatCodecVideo.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;
using V = IFormatCodecVideo;

constexpr const std::string* kVideoCodecs[] = {&V::CODEC_ID_WMV2};
constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_WMAV2};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_WMV,
                                                 Container::NO_FLAGS,
                                                 {16, 16, 16, 16},
                                                 Container::CodecList(kVideoCodecs, V::CODEC_ID_WMV2),
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_WMAV2)};

}  // namespace

DataHelperFormatWmv::DataHelperFormatWmv() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatWmv::~DataHelperFormatWmv() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatWmv::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatWmv());
}

}  // namespace Tervan::Conf
