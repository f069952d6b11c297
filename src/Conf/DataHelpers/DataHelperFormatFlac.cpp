#include "Conf/DataHelpers/DataHelperFormatFlac.h"

#include "Conf/Interfaces/IFormatCodecAudio.h"
#include "Conf/Interfaces/IFormatFile.h"

namespace Tervan::Conf {

namespace {

using Container = DataHelperFormatContainer;
using F = IFormatFile;
using A = IFormatCodecAudio;

constexpr const std::string* kAudioCodecs[] = {&A::CODEC_ID_FLAC};

// identifier key, identifier, flags, limits (video, audio, subtitle, other), video codecs, audio codecs
constexpr Container::Description kDescription = {&F::TAG_CONTAINER,
                                                 &F::FORMAT_FLAC,
                                                 Container::NO_FLAGS,
                                                 {0, 1, 0, 16},
                                                 {},
                                                 Container::CodecList(kAudioCodecs, A::CODEC_ID_FLAC)};

}  // namespace

DataHelperFormatFlac::DataHelperFormatFlac() : DataHelperFormatContainer(kDescription) {}

DataHelperFormatFlac::~DataHelperFormatFlac() = default;

boost::intrusive_ptr<const IDataHelper> DataHelperFormatFlac::Create() {
    return boost::intrusive_ptr<const IDataHelper>(new DataHelperFormatFlac());
}

}  // namespace Tervan::Conf
