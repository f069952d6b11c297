#include "Conf/DataHelpers/DataHelperFormatM4a.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;

constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_AAC, &A::CODEC_ID_ALAC};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_M4A,
                                                 Container::NO_FLAGS,
                                                 {0, 1, 0, 1},
                                                 {},
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_AAC)};

}  // namespace

DataHelperFormatM4a::DataHelperFormatM4a() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatM4a::~DataHelperFormatM4a() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatM4a::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatM4a());
}

}  // namespace Tervan::Conf
